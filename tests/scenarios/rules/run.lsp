; The analyser with the case's rules, and a parser around it.
(make-lex-analyzer A :lexicon L :lexical-rules R)
(def-torvane-parser P :attribute-vector-type syn :lexical-attributes (lexitem)
  :show-attributes (cat) :default-percolating-attributes () :weights-of-words (int 1)
  :lexical-analyzer A)
(init-attributes)
