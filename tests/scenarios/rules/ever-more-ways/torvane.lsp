; Ever more ways through a sentence, most of which lead nowhere or to the same span.
(load base.lsp)
(defmacro rules-over ((items)) (def-rules R
  (pairs (:act-on-all-matches) (seq :overlapping (lexitem (t)) (lexitem (int-eq (lexitem-length) (int 1))))
         (assert (make-lexitem (low) (high) (comp ($ 1) (meaning)))))
  (nowhere (seq nowhere items) (say (str wrong)))
  (forward (seq :front-to-back items nowhere) (say (str wrong)))
  (no-such (no (seq items)) (show-span))
  (rows (+ (seq items)) (t))
  (both (seq ($) (& (whole-sentence) (seq items))) (say (str wrong)))
  (done (seq :front-to-back (^) (word (t))) (say (str done)))))
; 25 parts.
(rules-over ((lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t))
             (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t))
             (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t))
             (lexitem (t)) (lexitem (t)) (lexitem (t)) (lexitem (t))))
(load sentence.lsp)
