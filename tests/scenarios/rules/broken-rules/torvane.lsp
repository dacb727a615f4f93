; Rules and sets of rules that are not whole, and what is said of them.
(load base.lsp)
(def-rules R
  (no-pattern)
  (only-options (:act-on-all-matches) (:precondition (t)))
  (unknown-pattern (bogus x) (say (str wrong)))
  (odd-pattern ((x) y) (say (str wrong)))
  (odd-part (seq x (bogus)) (say (str wrong)))
  (odd-action x (bogus))
  (atom-action x action)
  an-atom
  ((list name) x (say (str "named or not, it runs")))
  (odd-option x (:precondition (bogus)) (say (str "no condition passes"))))
(def-rules)
(def-rules L (a x))
(insert-lex-rules nothing R (a x)) (insert-lex-rules)
(insert-lex-rules R nobody (a x (say (str wrong)))) (debug-rules nothing 1)
(sentence "two rules are left:" "x")
