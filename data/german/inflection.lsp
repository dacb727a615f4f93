; What the endings mean. The rules run in this order over the readings that the lexicon gave; a reading whose ending
; no rule has accepted goes.

(defun noun () (att (contain ((node NN)))))
(defun adjective () (att (and (contain ((cat a))) (not (defined (node))))))
(defun verb () (att (and (contain ((cat v))) (not (defined (vform))))))
(defun neuter () (att (contain ((node NN) (agr nn)))))
(defun singular-m-n () (att (or (contain ((node NN) (agr mn md))) (contain ((node NN) (agr nn nd))))))

(def-rules german-rules
  ; Nouns have a capital, and at the start of a sentence everything has one.
  (no-capital (:act-on-all-matches) (lexitem (and (noun) (surform (reg-match "^[a-z]"))))
    (delete (litem)))

  ; Verbs.
  (infinitive (:act-on-all-matches) (lexitem (and (ending bare) (verb)))
    (prog (assert (comp (duplicate-lexitem (litem)) (when (ident) (att (modify (wir))))))
          (comp (litem) (att (modify ((vform inf)))))))
  (ich (:act-on-all-matches) (lexitem (and (ending ich) (verb))) (comp (litem) (att (modify (ich)))))
  (du (:act-on-all-matches) (lexitem (and (ending du) (verb))) (comp (litem) (att (modify (du)))))
  (er (:act-on-all-matches) (lexitem (and (ending er) (verb))) (comp (litem) (att (modify (er)))))
  (ich-er (:act-on-all-matches) (lexitem (and (ending ich-er) (verb))) (comp (litem) (att (modify (ich-er)))))
  (wir (:act-on-all-matches) (lexitem (and (ending wir) (verb))) (comp (litem) (att (modify (wir)))))

  ; Adjectives, after der, ein, and nothing.
  (adjective-e (:act-on-all-matches) (lexitem (and (ending e) (adjective)))
    (prog (assert (comp (duplicate-lexitem (litem)) (when (ident) (att (modify ((node A) (decl weak) (agr mn fn fa nn na)))))))
          (assert (comp (duplicate-lexitem (litem)) (when (ident) (att (modify ((node A) (decl mixed) (agr fn fa)))))))
          (comp (litem) (att (modify ((node A) (decl strong) (agr fn fa pn pa)))))))
  (adjective-en (:act-on-all-matches) (lexitem (and (or (ending en) (ending n)) (adjective)))
    (prog (assert (comp (duplicate-lexitem (litem))
                        (when (ident) (att (modify ((node A) (decl weak mixed) (agr ma md mg fd fg nd ng pn pa pd pg)))))))
          (comp (litem) (att (modify ((node A) (decl strong) (agr ma mg ng pd)))))))
  (adjective-er (:act-on-all-matches) (lexitem (and (ending er) (adjective)))
    (prog (assert (comp (duplicate-lexitem (litem)) (when (ident) (att (modify ((node A) (decl mixed) (agr mn)))))))
          (comp (litem) (att (modify ((node A) (decl strong) (agr mn fd fg pg)))))))
  (adjective-es (:act-on-all-matches) (lexitem (and (ending es) (adjective)))
    (comp (litem) (att (modify ((node A) (decl mixed strong) (agr nn na))))))
  (adjective-em (:act-on-all-matches) (lexitem (and (ending em) (adjective)))
    (comp (litem) (att (modify ((node A) (decl strong) (agr md nd))))))
  (adjective-bare (:act-on-all-matches) (lexitem (and (ending bare) (adjective)))
    (comp (litem) (att (modify ((node Pred))))))

  ; Nouns: des Mannes; dem Studenten; die Hunde, den Hunden.
  (weak (:act-on-all-matches) (lexitem (and (or (ending en) (ending n)) (att (contain (+masculine)))))
    (comp (litem) (att (modify ((agr ma md mg pn pa pd pg) (plural none))))))
  (genitive (:act-on-all-matches) (lexitem (and (or (ending s) (ending es)) (singular-m-n)))
    (if (comp (litem) (neuter))
        (comp (litem) (att (modify ((agr ng) (plural none)))))
        (comp (litem) (att (modify ((agr mg) (plural none)))))))
  ; (plural none) marks what has its ending already.
  (plural-e (:act-on-all-matches) (lexitem (and (ending e) (noun) (att (contain ((plural e))))))
    (comp (litem) (att (modify ((agr pn pa pg) (plural none))))))
  (plural-er (:act-on-all-matches) (lexitem (and (ending er) (noun) (att (contain ((plural er))))))
    (comp (litem) (att (modify ((agr pn pa pg) (plural none))))))
  (plural-n (:act-on-all-matches)
    (lexitem (and (noun) (or (and (ending en) (att (contain ((plural en))))) (and (ending n) (att (contain ((plural n))))))))
    (comp (litem) (att (modify ((agr pn pa pd pg) (plural none))))))
  (plural-dative (:act-on-all-matches)
    (lexitem (and (noun) (or (and (ending en) (att (contain ((plural e)))))
                             (and (ending ern) (att (contain ((plural er)))))
                             (and (ending n) (att (contain ((agr pn)))) (att (contain ((plural none)))) (att (defined (lemma)))))))
    (comp (litem) (att (modify ((agr pd) (plural none))))))
  (other-ending (:act-on-all-matches)
    (lexitem (and (not (ending bare))
                  (not (att (or (defined-one-of (vform decl)) (contain ((node NN) (plural none))))))))
    (delete (litem)))

  (lemma (:act-on-all-matches) (lexitem (att (defined (lemma))))
    (set-lexitem-root (litem) (comp (litem) (att (att-str-val lemma)))))
  (joins (lexitem (surform (in (und)))) (flag-last-conjunction (litem))))
