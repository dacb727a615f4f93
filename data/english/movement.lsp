; Readings that lack their object, because it stands elsewhere in the sentence.

(defun att-of-verb () (comp (litem) (att (contain ((cat v))))))

(def-rules english-rules
  ; The passive: the object is the subject now. `sent` also means `sent` by someone.
  (passive (:act-on-all-matches) (lexitem (att (and (contain ((cat v) +tr)) (strict-unifiable (vform) ((vform en))))))
    (assert (comp (duplicate-lexitem (litem))
                  (when (ident)
                        (att (prog (move-att args object) (modify (-tr (vform pass)))))))))

  ; It is said that, it was agreed to: what is said stays where it is.
  (impersonal-passive (:act-on-all-matches)
      (lexitem (att (and (contain ((cat v))) (not (contain (+tr))) (contain ((args ((cat c) +opt (role comp)))))
                      (strict-unifiable (vform) ((vform en))))))
    (if (preceded-by-word (pred (in (is was be been being "'s" often widely generally commonly also now not never
                                      ever))))
        (assert (comp (duplicate-lexitem (litem)) (when (ident) (att (modify ((vform pass)))))))))
  ; tired, closed, married: what is an adjective too is rather that.
  (participle-or-adjective (:act-on-all-matches) (lexitem (att (contain ((cat v) (vform pass)))))
    (if (exist-lexitem (low) (high) (pred (att (and (contain ((cat a))) (not (defined-one-of (node freq)))))))
        (add-weight (litem) (int 1))))

  ; the book he gave me __: the second object is missing.
  (second-gap (:act-on-all-matches)
    (lexitem (att (contain (+tr (args ((cat n) +opt (role iobj) (slash np)) ((cat n) (role obj)))))))
    (if (followed-by-word (pred (in (me him her us them you it))))
        (assert (comp (duplicate-lexitem (litem))
                      (when (ident)
                            (att
                              (prog (undefine (args))
                                (modify (-tr (args ((cat n) (role iobj)))
                                          (move ((cat n) (role obj) (slash np))))))))))))
  ; The gap: what did you see __, the house that he lives in __. The first argument goes into `move`, from
  ; where a link with check-slash takes it.
  ; Where a noun phrase follows there is none; behind a preposition nothing but one follows otherwise.
  (gap (:act-on-all-matches) (lexitem (att (contain (+tr))))
    (if (and (not (followed-by-word (pred (starts-noun-phrase))))
             (or (att-of-verb) (not (followed-by (pred (t))))
                 (followed-by (pred (att (not (or (contain ((cat n))) (contain ((cat d))) (contain ((node Num))))))))))
        (assert (comp (duplicate-lexitem (litem))
                      (when (ident)
                            (att (prog (move-att args move) (modify (-tr))))))))))
