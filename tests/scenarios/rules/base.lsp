; What the cases share: an empty lexicon, a parser for a set of rules, and functions that show what they are given.
(load syn.lsp)
(make-lexicon L 101 :ending-table ((p "" bare) (p s s)))
; A parser with the rules R, to which the cases add.
(def-rules R)
(make-lex-analyzer A :lexicon L :lexical-rules R)
(def-torvane-parser P :attribute-vector-type syn :lexical-attributes (lexitem) :show-attributes (cat)
  :default-percolating-attributes () :weights-of-words (int 1) :lexical-analyzer A)
(init-attributes)

(defun show () (print-str :prefix " " :suffix ","))
(defun say (text) (comp (get-val text) (show)))
; "LOW-HIGH words" of a match, and the root of an item or "none"
(defun show-span () (comp (format (comp (low) (int2str)) "-" (comp (high) (int2str)) " " (matching-word)) (show)))
(defun show-root () (if (ident) (comp (root) (show)) (say (str none))))
(defun yes-or-no (what test) (comp (format (get-val what) " " (if (get-val test) (str yes) (str no))) (show)))
; All items, in lines of their own.
(defun show-items () (prog (comp (str "\n") (print-str)) (exec-commands (li))))
