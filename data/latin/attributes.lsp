; The attributes of Latin words and phrases.

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

  ; What agrees: noun and adjective in all three, subject and verb in number and person. Where a form is ambiguous
  ; between numbers (puellae) it has two readings, see inflection.lsp.
  (defattribute case DisjAtt (allowable-values nom gen dat acc abl))
  (defattribute num DisjAtt (allowable-values sg pl))
  (defattribute gender DisjAtt (allowable-values m f n))
  (defattribute person DisjAtt (allowable-values p1 p2 p3))
  (defattribute class EnumAtt (allowable-values d1 d2 d2n d3 d3n c1 c2 c3 c4 perf))   ; which endings a stem has
  (defattribute proper BinAtt)

  ; Verbs. +subj +acc +dat: still has room for such a one; - is had.
  (defattribute vform DisjAtt (allowable-values fin inf))
  (defattribute subj BinAtt)
  (defattribute acc BinAtt)
  (defattribute dat BinAtt)
  (defattribute aci BinAtt)            ; dicit, videt: takes an infinitive with its own subject
  (defattribute lemma StrAtt))

(make-avmeaning-proto syn avm)

; Nouns: a stem with its declension and gender. Of the third declension the nominative is an entry of its own.
(alias noun (make-av syn ((cat n) (node NN) (person p3))))
(alias f1  (make-av syn (noun (gender f) (class d1))))     ; puella
(alias m1  (make-av syn (noun (gender m) (class d1))))     ; poeta
(alias m2  (make-av syn (noun (gender m) (class d2))))     ; servus
(alias n2  (make-av syn (noun (gender n) (class d2n))))    ; bellum
(alias m3  (make-av syn (noun (gender m) (class d3))))     ; rex, reg-is
(alias f3  (make-av syn (noun (gender f) (class d3))))     ; urbs, urb-is
(alias n3  (make-av syn (noun (gender n) (class d3n))))    ; nomen, nomin-is
(alias m3-nom (make-av syn (noun (gender m) (num sg) (case nom))))
(alias f3-nom (make-av syn (noun (gender f) (num sg) (case nom))))
(alias n3-nom (make-av syn (noun (gender n) (num sg) (case nom acc))))
(alias pron (make-av syn ((cat n) (node Pro))))
(alias rel (make-av syn ((cat n) (node RelPro))))

; An adjective has three rows of endings, one a gender: bonus, bona, bonum.
(alias adj-m (make-av syn ((cat a) (gender m) (class d2))))
(alias adj-f (make-av syn ((cat a) (gender f) (class d1))))
(alias adj-n (make-av syn ((cat a) (gender n) (class d2n))))

; Verbs by what they take; a class (c1 amat, c2 videt, c3 dicit, c4 audit, perf amavit) goes with it.
(alias v         (make-av syn ((cat v) +subj)))
(alias v-acc     (make-av syn ((cat v) +subj +acc)))
(alias v-dat     (make-av syn ((cat v) +subj +dat)))
(alias v-dat-acc (make-av syn ((cat v) +subj +dat +acc)))
(alias v-aci     (make-av syn ((cat v) +subj +aci)))
