; What the endings mean. A reading whose ending does not suit its word goes: `walked` is no noun.
; Rules run in this order, each once, over the items that the lexicon gave.

(defun noun () (att (and (contain ((cat n))) (defined (count)))))
(defun verb () (att (and (contain ((cat v))) (not (defined (vform))))))
(defun adjective () (att (and (contain ((cat a))) (not (defined (node))))))

; Words behind which a verb is due.
(defun before-plain-verb ()
  (in (to i you we they who that "n't" nt na ta not will would can could should may might must do please lets "'ll"
        "'d" and)))
(defun before-third-person () (in (he she it who that which)))

(def-rules english-rules
  ; person... and ...maybe: full stops that stand at a word are no part of it.
  (full-stops (& (not-in-lexicon) (word (reg-match "^[A-Za-z][A-Za-z]*[.][.]+$" "^[.][.]+[A-Za-z]*$")))
    (look-up (low) (high) (comp (matching-word) (reg-sub "[.][.]+" ""))))
  (quoted (& (not-in-lexicon) (word (reg-match "^'[A-Za-z]")))
    (look-up (low) (high) (comp (matching-word) (reg-sub "^'" ""))))
  (s-noun (:act-on-all-matches) (lexitem (and (ending s) (noun) (att (not (defined (agr))))))
    (comp (litem) (att (modify (-count (agr p3))))))
  (s-verb (:act-on-all-matches) (lexitem (and (ending s) (verb)))
    (comp (litem) (att (modify ((vform pres) (agr s3))))))
  (s-other (:act-on-all-matches)
    (lexitem (and (ending s) (not (att (or (contain ((cat n) (agr p3) -count))
                                           (contain ((cat v) (vform pres))))))))
    (delete (litem)))

  (ed-verb (:act-on-all-matches) (lexitem (and (ending ed) (verb)))
    (comp (litem) (att (modify ((vform past en))))))
  (ed-other (:act-on-all-matches) (lexitem (and (ending ed) (not (att (contain ((cat v) (vform past)))))))
    (delete (litem)))

  (ing-verb (:act-on-all-matches) (lexitem (and (ending ing) (verb)))
    (comp (litem) (att (modify ((vform ing))))))
  (ing-other (:act-on-all-matches) (lexitem (and (ending ing) (not (att (contain ((cat v) (vform ing)))))))
    (delete (litem)))

  ; A verb with -er is one who does it, unless the word is a noun already.
  (er-verb (:act-on-all-matches)
    (lexitem (and (ending er) (verb) (no-alternative (att (contain ((cat n)))))))
    (comp (litem) (att (prog (undefine (args case tr)) (modify ((cat n) (node NN) +count))))))
  (er-other (:act-on-all-matches)
    (lexitem (and (or (ending er) (ending est)) (not (adjective)) (not (noun))))
    (delete (litem)))
  (er-noun (:act-on-all-matches)
    (lexitem (and (or (ending er) (ending est)) (noun)
                  (or (not (att (contain (+count)))) (not (no-alternative (att (contain ((cat n)))))))))
    (delete (litem)))

  ; An adjective with -ly is an adverb.
  (ly-adjective (:act-on-all-matches) (lexitem (and (ending ly) (adjective) (not (att (defined (args))))))
    (comp (litem) (att (modify ((node Adv))))))
  (ly-other (:act-on-all-matches) (lexitem (and (ending ly) (not (att (contain ((node Adv)))))))
    (delete (litem)))

  ; Without an ending.
  (bare-verb (:act-on-all-matches) (lexitem (verb))
    (comp (litem) (att (modify ((vform base pres) (agr s1 s2 p1 p2 p3))))))
  (bare-noun (:act-on-all-matches) (lexitem (and (noun) (att (not (defined (agr))))))
    (comp (litem) (att (modify ((agr s3))))))
  (irregular (:act-on-all-matches) (lexitem (att (defined (lemma))))
    (set-lexitem-root (litem) (comp (litem) (att (att-str-val lemma)))))

  ; A verb may serve as a noun and, where a verb is due, a noun as a verb, at a price.
  (verb-as-noun (:act-on-all-matches)
    (lexitem (and (ending bare) (att (contain ((cat v) (vform base)))) (int-eq (lexitem-length) (int 1))
                  (no-alternative (att (or (contain ((cat n))) (contain ((cat i))) (contain ((cat p))))))))
    (if (not (preceded-by-word (pred (before-plain-verb))))
        (assert (add-weight (make-lexitem (low) (high) (avm (avm (noun sg)))) (int 4)))))
  (verb-as-nouns (:act-on-all-matches)
    (lexitem (and (ending s) (att (contain ((cat v) (vform pres)))) (int-eq (lexitem-length) (int 1))
                  (no-alternative (att (or (contain ((cat n))) (contain ((cat i))))))))
    (assert (add-weight (make-lexitem (low) (high) (avm (avm (plural)))) (int 4))))
  (noun-as-verb (:act-on-all-matches)
    (lexitem (and (ending bare) (att (and (contain ((cat n) (node NN) (agr s3))) (not (contain (+proper)))))
                  (int-eq (lexitem-length) (int 1))
                  (no-alternative (att (not (contain ((cat n))))))))
    (if (or (int-eq (low) (int 1)) (preceded-by-word (pred (before-plain-verb))))
        (assert (add-weight (make-lexitem (low) (high) (avm (avm (vo non3 (vform base pres))))) (int 20)))))
  (nouns-as-verb (:act-on-all-matches)
    (lexitem (and (ending s) (att (contain ((node NN) (agr p3))))
                  (no-alternative (att (not (contain ((cat n))))))))
    (if (preceded-by-word (pred (before-third-person)))
        (assert (add-weight (make-lexitem (low) (high) (avm (avm (vo sg (vform pres))))) (int 20)))))

  ; "that he ..." is hardly a determiner.
  (that-he (:act-on-all-matches)
    (lexitem (and (att (contain ((cat d) +alone))) (root) (surform (in (that)))))
    (if (followed-by (pred (att (or (contain (+pro (case nom))) (contain (+proper)) (contain ((cat d)))))))
        (add-weight (litem) (int 3))))

  ; "what" before a noun asks about it; before anything else it stands alone.
  (what-noun (:act-on-all-matches) (lexitem (and (att (contain ((cat d) +wh))) (surform (in (what which)))))
    (if (not (followed-by (pred (att (or (contain ((node NN) -proper)) (contain ((cat a)))
                                         (and (contain ((node NN))) (not (contain (+proper)))))))))
        (add-weight (litem) (int 3))))
  ; US is no pronoun.
  (us (word (in :case-sensitive (US)))
    (prog (delete-if (low) (high) (pred (t)))
          (assert (make-lexitem (low) (high) (avm (avm (name sg)))))))
  ; "there is" is hardly a place, nor is "there will be"; "is there" may be one.
  (there-is (:act-on-all-matches) (lexitem (and (att (contain ((node Adv)))) (surform (in (there)))))
    (cond ((followed-by (pred (att (and (contain ((node Aux) (own fin))) (strict-unifiable (vform)
            ((vform prd en base)))))))
           (add-weight (litem) (int 4)))
          ((and (preceded-by-word (pred (in (is are was were "'s")))) (int-gt (int 4) (low)))
           (add-weight (litem) (int 2)))))

  ; want there to be peace
  (there-to-be (seq (lexitem (and (att (contain ((node Adv)))) (surform (in (there))))) to be)
    (add-weight (comp ($ 1) (litem)) (int 4)))
  ; as soon as, as much as: the first one is an adverb.
  (as-soon-as (seq (word (in (as))) (lexitem (att (or (contain ((node Adv))) (contain ((cat a))) (contain ((cat d))))))
                   (word (in (as))))
    (delete-if (low) (low) (pred (att (or (contain ((cat p))) (contain ((node Sub))))))))
  ; "to" before what may be a verb is hardly a preposition.
  (to-verb (:act-on-all-matches) (lexitem (and (att (contain ((cat p) (pform to)))) (surform (in (to)))))
    (if (followed-by (pred (att (and (contain ((cat v))) (strict-unifiable (vform) ((vform base)))))))
        (add-weight (litem) (int 1))))

  (rare (:act-on-all-matches) (lexitem (att (contain (+rare))))
    (add-weight (litem) (int 3)))
  (infrequent (:act-on-all-matches) (lexitem (att (defined (freq))))
    (add-weight (litem)
      (comp (litem) (att (cond ((contain ((freq f1))) (int 1)) ((contain ((freq f2))) (int 2))
                               ((contain ((freq f3))) (int 3)) ((contain ((freq f4))) (int 4))
                               ((contain ((freq f5))) (int 5)) ((contain ((freq f6))) (int 6))
                               ((contain ((freq f7))) (int 7)) ((t) (int 8))))))))
