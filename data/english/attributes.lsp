; The attributes of a word, a phrase, a parse item: all are vectors of the type `syn`.

(def-att-list syn
  ; Read by the parser itself. The lists of values have to hold at least these.
  (defattribute cat EnumAtt (allowable-values a c d i j n p v))   ; names the node, with `args`
  (defattribute node StrAtt)          ; names the node outright
  (defattribute args ListAtt)         ; what a head takes, one vector an argument
  (defattribute head_final BinAtt)    ; the arguments stand in front of the head
  (defattribute opt BinAtt)           ; in an argument: may be missing
  (defattribute role StrAtt)          ; in an argument: the name of its relation
  (defattribute move ListAtt)         ; what is missing here and stands elsewhere in the sentence
  (defattribute slash DisjAtt (allowable-values wh np))   ; in an element of `move`: its class
  (defattribute check DisjAtt (allowable-values wh np))   ; classes of `move` that a modifier fills
  (defattribute trace TraceAtt)       ; for whom a filled `move` stood
  (defattribute control BinAtt)
  (defattribute cm BinAtt)
  (defattribute govern BinAtt)
  (defattribute guest BinAtt)         ; -guest: never a parenthesis
  (defattribute last_conj BinAtt)
  (defattribute lexitem EntAtt)
  (defattribute pform StrAtt)         ; which preposition
  (defattribute cform StrAtt)
  (defattribute rare BinAtt)          ; an unlikely reading, see inflection.lsp
  (defattribute freq EnumAtt (allowable-values f1 f2 f3 f4 f5 f6 f7 f8))   ; how unlikely, as counts of senses tell
  (defattribute ref StrAtt)

  ; Verbs. The form of a verb group is that of its first word; an auxiliary has in `vform` the form
  ; that it wants behind it, in `own` what it is itself.
  (defattribute vform DisjAtt (allowable-values base pres past en ing pass prd fin inf))
  (defattribute own EnumAtt (allowable-values fin base en ing inf))
  (defattribute tr BinAtt)            ; the first argument is an object
  (defattribute object ListAtt)       ; the object that a passive has lost to its subject
  (defattribute lemma StrAtt)         ; of an irregular form

  ; Nouns and what stands before them.
  (defattribute agr DisjAtt (allowable-values s1 s2 s3 p1 p2 p3))   ; person and number
  (defattribute case DisjAtt (allowable-values nom acc))
  (defattribute count BinAtt)         ; +count: the bare singular wants a determiner
  (defattribute spec BinAtt)          ; has a determiner
  (defattribute pre BinAtt)           ; a determiner before another one
  (defattribute alone BinAtt)         ; a determiner that can do without a noun
  (defattribute few BinAtt)           ; a determiner that can have `a` before it: a few
  (defattribute pro BinAtt)           ; a pronoun: closed to most modifiers
  (defattribute some BinAtt)          ; ... but not to an adjective behind it: something new
  (defattribute part BinAtt)          ; ... nor to `of`: some of them
  (defattribute proper BinAtt)        ; a name
  (defattribute human BinAtt)         ; ... that nothing but a name can be: Neal, not Post
  (defattribute title BinAtt)         ; a name that stands before one: Mr.
  (defattribute cap BinAtt)           ; an adjective that is written with a capital: Israeli
  (defattribute that BinAtt)          ; the fact that ...
  (defattribute to BinAtt)            ; the chance to ...
  (defattribute counted BinAtt)       ; has a number: a measure, 53 cents
  (defattribute time BinAtt)          ; yesterday, last week
  (defattribute wh BinAtt)            ; asks
  (defattribute rel BinAtt)           ; relates: whose

  ; Adverbs, prepositions, conjunctions.
  (defattribute deg BinAtt)           ; very, too: before adjectives and adverbs only
  (defattribute focus BinAtt)         ; only, even: before a noun phrase too
  (defattribute loc BinAtt)           ; here, away: also after a form of `be`
  (defattribute front BinAtt)         ; may only open the sentence
  (defattribute verbal BinAtt)        ; a preposition that goes with verbs rather than nouns
  (defattribute heavy BinAtt)         ; an adjective with a complement stands behind its noun
  (defattribute marked BinAtt)        ; a clause that shows that it is one: that, what, whether
  (defattribute conj BinAtt)          ; and, or: joins what is before and behind it
  (defattribute conj1 BinAtt))        ; both, either: stands before the first of two

(make-avmeaning-proto syn avm)

; Shorthand for the lexicon. An alias stands where an attribute name stands and gives all its values.

(alias sg  (make-av syn ((agr s3))))
(alias plu (make-av syn ((agr p3))))

; Nouns. Those of the vocabulary enter the node NN; pronouns have a node of their own.
(alias noun  (make-av syn ((cat n) (node NN) +count)))
(alias mass  (make-av syn ((cat n) (node NN) -count)))
(alias plural (make-av syn ((cat n) (node NN) -count (agr p3))))
(alias name  (make-av syn ((cat n) (node NN) -count +proper)))
(alias person (make-av syn (name +human)))
(alias tnoun (make-av syn (noun +time)))
(alias tmass (make-av syn (mass +time)))
(alias pron  (make-av syn ((cat n) (node Pro) +pro +spec)))
(alias num   (make-av syn ((cat a) (node Num) +counted)))
(alias det   (make-av syn ((cat d) +spec)))

; Verbs, by what they take. The node's name comes from `args`: V, V_N, V_N_C, ...
(alias vi  (make-av syn ((cat v))))
(alias vt  (make-av syn ((cat v) (case acc) +tr (args ((cat n) (role obj) (slash np))))))
(alias vo  (make-av syn ((cat v) (case acc) +tr (args ((cat n) +opt (role obj) (slash np))))))
(alias vd  (make-av syn ((cat v) (case acc) +tr (freq f1)
                         (args ((cat n) +opt (role iobj) (slash np)) ((cat n) (role obj))))))
(alias vnp (make-av syn ((cat v) (case acc) +tr
                         (args ((cat n) (role obj) (slash np)) ((cat p) +opt (role loc))))))
(alias vc  (make-av syn ((cat v) (args ((cat c) +opt (role comp))))))
(alias vnc (make-av syn ((cat v) (case acc) +tr
                         (args ((cat n) (role obj) (slash np)) ((cat c) (role comp))))))
(alias vto (make-av syn ((cat v) (args ((cat i) (role comp))))))
(alias vnto (make-av syn ((cat v) (case acc) +tr
                          (args ((cat n) (role obj) (slash np)) ((cat i) (role comp))))))
(alias va  (make-av syn ((cat v) (args ((cat a) (role pred))))))
(alias vn  (make-av syn ((cat v) (args ((cat n) (role pred))))))
(alias vna (make-av syn ((cat v) (case acc) +tr
                         (args ((cat n) (role obj) (slash np)) ((cat a) (role pred))))))
(alias vnn (make-av syn ((cat v) (case acc) +tr
                         (args ((cat n) (role obj) (slash np)) ((cat n) (role pred))))))
(alias vnb (make-av syn ((cat v) (node V_N_VB) (case acc))))   ; make him go: see verbs.lsp

(alias vb (make-av syn ((cat v) (node V_VB))))                  ; go see

(alias past (make-av syn ((vform past))))
(alias en   (make-av syn ((vform en))))
(alias ed   (make-av syn ((vform past en))))
(alias non3 (make-av syn ((agr s1 s2 p1 p2 p3))))

; Auxiliaries, by what they want behind them.
(alias modal (make-av syn ((cat i) (node Aux) (vform base))))
(alias have  (make-av syn ((cat i) (node Aux) (vform en))))
(alias getting (make-av syn ((cat i) (node Aux) (vform pass))))
(alias be    (make-av syn ((cat i) (node Aux) (vform ing pass prd))))

; Adjectives, adverbs, prepositions, and the small words.
(alias adj  (make-av syn ((cat a))))
(alias adjc (make-av syn ((cat a) (args ((cat c) (role comp))))))
(alias adji (make-av syn ((cat a) (args ((cat i) (role comp))))))
(alias adv  (make-av syn ((cat a) (node Adv))))
(alias prep (make-av syn ((cat p) (case acc) +tr (args ((cat n) (role pcomp) (slash np))))))
(alias post (make-av syn ((cat p) +head_final (args ((cat n) (role pcomp))))))
(alias sub  (make-av syn ((cat j) (node Sub))))
(alias comp (make-av syn ((cat j) (node Comp))))
(alias relpro (make-av syn ((cat n) (node RelPro))))
(alias conn (make-av syn ((cat j))))
(alias intj (make-av syn ((cat j) (node Intj))))
