(def-rules rules
  (plural (:act-on-all-matches) (lexitem (and (ending s) (att (contain ((cat n))))))
    (comp (litem) (att (modify ((num pl))))))
  (likes (lexitem (comp (root) (str= like)))
    (add-weight (litem) (int 1))))
(insert-lex-rules rules likes
  (singular (lexitem (ending bare)) (comp (litem) (att (unifiable ((num sg)))))))
(make-lex-analyzer analyser :lexicon words :lexical-rules rules)
(def-torvane-parser parser
  :attribute-vector-type syn
  :lexical-attributes (lexitem)
  :show-attributes (cat num)
  :default-percolating-attributes (move case)
  :weights-of-words (int 20)
  :lexical-analyzer analyser)
(init-attributes)
