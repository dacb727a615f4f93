; A type that lacks what the parser looks for, or gives it another class.
(init-attributes)
(def-att-list syn
  (defattribute args StrAtt) (defattribute cm BinAtt)
  (defattribute cat EnumAtt (allowable-values a c d i j n p v))
  (defattribute cform StrAtt) (defattribute check DisjAtt (allowable-values wh np pp))
  (defattribute control BinAtt) (defattribute govern BinAtt) (defattribute guest BinAtt)
  (defattribute head_final BinAtt) (defattribute last_conj BinAtt) (defattribute lexitem IntAtt)
  (defattribute node StrAtt) (defattribute opt BinAtt)
  (defattribute pform StrAtt) (defattribute rare BinAtt) (defattribute ref StrAtt)
  (defattribute role StrAtt) (defattribute slash DisjAtt (allowable-values np pp))
  (defattribute trace TraceAtt) (defattribute num EnumAtt (allowable-values sg pl)))
(make-lexicon dict 101)
(make-avmeaning-proto syn avm)
(lex dict
  (uh (avm ((cat j)))) (the (avm ((cat d)))) (this (avm ((cat d) (num sg)))) (these (avm ((cat d) (num pl))))
  (big (avm ((cat a)))) (old (avm ((cat a)))) (boy (avm ((cat n) (num sg)))) (boys (avm ((cat n) (num pl))))
  (in (avm ((cat p)))) (sleep (avm ((cat v)))))
(make-lex-analyzer la :lexicon dict)
(def-torvane-parser tp :attribute-vector-type syn :lexical-attributes (lexitem)
  :show-attributes (cat) :default-percolating-attributes ()
  :weights-of-words (int 0) :lexical-analyzer la)
(init-attributes)

(def-category N) (roots (N))

(echo "-- boy")
(p3 "boy")
(exit)
