; The analyser and the parser. Both have to exist before the grammar can be written.

(make-lex-analyzer english-analyzer :lexicon english :lexical-rules english-rules)

(def-torvane-parser english-parser
  :attribute-vector-type syn
  :lexical-attributes (lexitem)
  :show-attributes (cat vform agr)
  ; What a modifier hands to its head unless its link says otherwise. A head that has one of these too
  ; must agree with the modifier: so a verb's (case acc) keeps `he` from being its object. A phrase with -cm
  ; lacks case for its subject (there to be peace): it goes under heads with -govern only.
  :default-percolating-attributes (case move wh time cm)
  ; The cost of leaving a word out of the tree.
  :weights-of-words (if (reg-match "^[^A-Za-z0-9]*$") (int 1) (int 25))
  :lexical-analyzer english-analyzer)

(init-attributes)
