; A test of a part may read what another part has set: each is asked anew for each match beyond it.
(load base.lsp)
(lex L (red (avm ((cat a)))) (and (avm ((cat c)))) (wine (avm ((cat n)))) (red wine (avm ((cat n)))))
(declare-var seen char*)
(defun named-as-seen () (str-eq (root) (get-val seen)))
(def-rules R
  (twice (seq (lexitem (named-as-seen)) (lexitem (comp (root) (str= and))) (lexitem (setq seen (root)))) (show-span))
  (twice (seq :front-to-back (lexitem (setq seen (root))) (lexitem (comp (root) (str= and))) (lexitem (named-as-seen))) (show-span))
  (asked (seq (lexitem (prog (comp (root) (print-str :prefix " " :suffix " asked,")) (nil))) (lexitem (comp (root) (str= and)))
              (lexitem (t))) (show-span))
  (bounds (seq :max 3 (word (t)) :min 1 and) (show-span)))
(sentence "two parts named alike:" "red and red wine")
