; Where a predicate may begin that is no verb: behind a form of `be`, behind what may stand between the two, and in a
; question anywhere behind its subject. Such places are marked (is-case-marked asks for the mark); everywhere else a noun
; or adjective need not be tried as a predicate. The parser has to exist before these rules.

(defun be-alone () (att (and (contain ((node Aux))) (strict-unifiable (vform) ((vform prd))))))
(defun form-of-be () (or (be-alone) (att (contain ((node ItIs))))))
; is not, is always, is, however, a "good man"
(defun between-be-and-predicate ()
  (or (reg-match "ly$")
      (in (not "n't" "'t" "," "-" "(" ")" "\"" "'" "`" "[" so too very all both each quite rather almost nearly just
            only
           even still also never always often sometimes usually now then already perhaps maybe well however therefore
           indeed though thus as at about more less most least such far))))
(defun before-inverted () (in (and but or so nor never if what who where when why how which "," "\"" "-" ":" ";" "("
                                no)))

(def-rules english-rules
  (predicate (:act-on-all-matches) (lexitem (form-of-be))
    (comp (high) (case-mark-position english-parser)))
  (predicate-behind-one (seq (lexitem (form-of-be)) (word (between-be-and-predicate)))
    (comp (high) (case-mark-position english-parser)))
  (predicate-behind-two (seq (lexitem (form-of-be)) (word (between-be-and-predicate))
                             (word (between-be-and-predicate)))
    (comp (high) (case-mark-position english-parser)))
  (predicate-behind-three (seq (lexitem (form-of-be)) (word (between-be-and-predicate))
                               (word (between-be-and-predicate))
                               (word (between-be-and-predicate)))
    (comp (high) (case-mark-position english-parser)))
  ; is, I think, ill
  (predicate-behind-commas (seq (lexitem (form-of-be)) "," (+ (no ",")) ",")
    (comp (high) (case-mark-position english-parser)))
  ; Is the old man here a doctor; he is tall and in good health
  (predicate-of-question (seq :overlapping (! (^) (word (before-inverted))) (lexitem (be-alone))
                              (+ (no (lexitem (be-alone)))))
    (comp (high) (case-mark-position english-parser)))
  (second-predicate (seq :overlapping (lexitem (form-of-be)) (+ (no (lexitem (be-alone))))
                      (word (in (and or but nor yet))))
    (comp (high) (case-mark-position english-parser))))
