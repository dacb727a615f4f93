; Flags for the parser: words that join, and signs that it should look through.

(def-rules english-rules
  ; The head of a phrase is its first word, that of a nominal one its last.
  (heads (:act-on-all-matches) (lexitem (int-gt (lexitem-length) (int 1)))
    (comp (litem) (set-head-of-lexitem)))

  (joins (lexitem (att (contain (+conj)))) (flag-last-conjunction (litem)))
  (adverbs (:act-on-all-matches) (lexitem (att (contain ((node Adv))))) (flag-adv (litem)))
  (joins-first (lexitem (att (contain (+conj1)))) (flag-first-conjunction (litem)))
  ; the (second world) war: brackets inside a noun phrase
  (inner-brackets (seq (word (in (the a an my your his her our their this that these those no any))) "("
                    (+ (no (word (in (")" "("))))) ")")
    (prog (comp ($ 2) (skip (low))) (skip (high))))
  ; A dash of two signs counts as one.
  (dashes (seq - -) (skip (low)))
  (quotes (word (in ("\"" "`" "[" "]" "{" "}"))) (skip (low))))
