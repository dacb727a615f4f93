; The attributes of German words and phrases.

(def-att-list syn
  ; Read by the parser itself, see docs/grammar.md.
  (defattribute cat EnumAtt (allowable-values a c d i j n p v))
  (defattribute node StrAtt)
  (defattribute args ListAtt)
  (defattribute head_final BinAtt)
  (defattribute opt BinAtt)
  (defattribute role StrAtt)
  (defattribute move ListAtt)
  (defattribute slash DisjAtt (allowable-values wh np))
  (defattribute check DisjAtt (allowable-values wh np))
  (defattribute trace TraceAtt)
  (defattribute control BinAtt)
  (defattribute cm BinAtt)
  (defattribute govern BinAtt)
  (defattribute guest BinAtt)
  (defattribute last_conj BinAtt)
  (defattribute lexitem EntAtt)
  (defattribute pform StrAtt)
  (defattribute cform StrAtt)
  (defattribute rare BinAtt)
  (defattribute ref StrAtt)

  ; Gender (m f n, p the plural) and case (n a d g) in one value: `der` is mn, fd, fg or pg, but never fn. Of the
  ; three persons only the third has a gender: i is ich, u du, w wir.
  (defattribute agr DisjAtt (allowable-values mn ma md mg fn fa fd fg nn na nd ng pn pa pd pg i u w))
  (defattribute decl DisjAtt (allowable-values weak mixed strong))   ; of an adjective: after der, ein, nothing
  (defattribute spec BinAtt)                                         ; has a determiner, or needs none
  (defattribute proper BinAtt)                                       ; a name
  (defattribute ante DisjAtt (allowable-values m f n p))             ; what a relative pronoun goes back to
  (defattribute plural EnumAtt (allowable-values e er en n none))    ; the ending of the plural of a noun
  (defattribute masculine BinAtt)                                    ; a weak noun: den Studenten

  ; Verbs. +nom +acc +dat: still wants a subject, an object in that case; - is had. That the order is free needs
  ; no more than this.
  (defattribute vform DisjAtt (allowable-values fin inf part prd))
  (defattribute perf EnumAtt (allowable-values haben sein))          ; the auxiliary of the perfect
  (defattribute nom BinAtt)
  (defattribute acc BinAtt)
  (defattribute dat BinAtt)
  (defattribute clause BinAtt)                                       ; may have a clause: ich weiß, dass ...
  (defattribute particle StrAtt)                                     ; kommt ... an
  (defattribute final BinAtt)                                        ; ankommt: only at the end of its clause
  (defattribute front BinAtt)                                        ; a clause with something before its verb
  (defattribute adverbial BinAtt)                                    ; weil, wenn; not dass
  (defattribute verbal BinAtt)                                       ; a preposition that rather goes with verbs: in
  (defattribute lemma StrAtt))

(make-avmeaning-proto syn avm)

; The cases.
(alias accusative (make-av syn ((agr ma fa na pa))))
(alias dative     (make-av syn ((agr md fd nd pd))))
(alias genitive   (make-av syn ((agr mg fg ng pg))))

; Nouns as they stand in a dictionary, by gender; `weak` is Student; `irregular-plural` is Bücher.
(alias m (make-av syn ((cat n) (node NN) (agr mn ma md))))
(alias f (make-av syn ((cat n) (node NN) (agr fn fa fd fg))))
(alias n (make-av syn ((cat n) (node NN) (agr nn na nd))))
(alias weak-m (make-av syn ((cat n) (node NN) (agr mn) +masculine)))
(alias irregular-plural (make-av syn ((cat n) (node NN) (agr pn pa pg) (plural none))))
(alias irregular-plural-n (make-av syn ((cat n) (node NN) (agr pn pa pd pg) (plural none))))   ; Gärten
(alias him (make-av syn ((cat n) (node NN) +spec +proper (agr mn ma md))))     ; names
(alias her (make-av syn ((cat n) (node NN) +spec +proper (agr fn fa fd))))
(alias pron (make-av syn ((cat n) (node Pro) +spec)))
(alias rel (make-av syn ((cat n) (node RelPro))))
(alias the (make-av syn ((cat d) +spec (decl weak))))
(alias a-an (make-av syn ((cat d) +spec (decl mixed))))

; Verbs by what they take.
(alias v         (make-av syn ((cat v) +nom)))
(alias v-acc     (make-av syn ((cat v) +nom +acc)))
(alias v-dat     (make-av syn ((cat v) +nom +dat)))
(alias v-dat-acc (make-av syn ((cat v) +nom +dat +acc)))
(alias v-clause  (make-av syn ((cat v) +nom +clause)))
(alias er        (make-av syn ((vform fin) (agr mn fn nn))))   ; the form of er, sie, es, of ich, ...
(alias ich       (make-av syn ((vform fin) (agr i))))
(alias du        (make-av syn ((vform fin) (agr u))))
(alias ich-er    (make-av syn ((vform fin) (agr i mn fn nn))))
(alias wir       (make-av syn ((vform fin) (agr pn w))))
(alias had       (make-av syn ((vform part) (perf haben))))    ; participles: gesehen, gekommen
(alias been      (make-av syn ((vform part) (perf sein))))

; Auxiliaries: what they want (`vform`), and the subject's form.
(alias have  (make-av syn ((cat i) (node Aux) (vform part) (perf haben))))
(alias be    (make-av syn ((cat i) (node Aux) (vform part) (perf sein))))
(alias cop   (make-av syn ((cat i) (node Aux) (vform prd))))
(alias modal (make-av syn ((cat i) (node Aux) (vform inf))))
