; A type that lacks what the parser looks for, or gives it another class.
(init-attributes)
(def-att-list syn
  (defattribute args StrAtt) (defattribute cat EnumAtt (allowable-values a c d i j n p v))
  (defattribute lexitem IntAtt) (defattribute slash DisjAtt (allowable-values np pp))
  (defattribute num EnumAtt (allowable-values sg pl)))
(make-lexicon dict 101)
(make-avmeaning-proto syn avm)
(lex dict (boy (avm ((cat n) (num sg)))))
(make-lex-analyzer la :lexicon dict)
(def-torvane-parser tp :attribute-vector-type syn :lexical-attributes (lexitem)
  :show-attributes (cat) :default-percolating-attributes ()
  :weights-of-words (int 0) :lexical-analyzer la)
(init-attributes)

(def-category N) (roots (N))

(echo "-- boy")
(p3 "boy")
(exit)
