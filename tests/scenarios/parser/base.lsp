; What the cases share: a parser with the lexicon `words` and the rules R, and a condition of roots that shows each
; item.
(load syn.lsp)
(make-lexicon words 101)
(def-rules R)
(make-lex-analyzer analyser :lexicon words :lexical-rules R)
(def-torvane-parser parser :attribute-vector-type syn :lexical-attributes (lexitem) :show-attributes (cat)
  :default-percolating-attributes () :weights-of-words (int 0) :lexical-analyzer analyser)
(init-attributes)
(defmacro shown (category) (or (prog (comp (str category) (print-str :prefix " " :suffix "["))
  (pitem-head-word (print-str :suffix "]"))) (t)))
