(def-tokenizer :name words " \n" "" "" "" "" "")
(declare-var lines)
(defun first-of () (comp (contain-tokens :tokenizer words (two four five six)) (print-str :suffix "\n")))
; a text first, then what is left of the stream
(foreach (lines.txt) :eval (setq lines (open-file)))
(eval (set-tokenizer-input words (get-val lines)))
(foreach ("zero two " "zero ") :eval (first-of))
; the standard input, by default and by name
(eval (set-tokenizer-input words))
(foreach ("zero ") :eval (first-of))
(eval (set-tokenizer-input (named-obj words Tokenizer) (input)))
(foreach ("zero ") :eval (first-of))
(eval (set-tokenizer-string-input words (str "a text")))
(eval (set-tokenizer-input (t) (input)) (set-tokenizer-string-input (nil) (str x)) (set-tokenizer-string-input))
