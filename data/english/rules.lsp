; Flags for the parser: words that join, and signs that it should look through.

(def-rules english-rules
  (joins (lexitem (att (contain (+conj)))) (flag-last-conjunction (litem)))
  (joins-first (lexitem (att (contain (+conj1)))) (flag-first-conjunction (litem)))
  (quotes (word (in ("\"" "`" "(" ")" "[" "]" "{" "}"))) (skip (low))))
