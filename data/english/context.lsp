; Readings that the word before, or behind, rules out. Where two neighbours leave no doubt, the other readings go:
; the parser then has less to try. A reading goes only where one that fits is left.

; Of a verb: no participle, which could stand before a noun.
(defun finite-only () (att (and (contain ((cat v))) (not (strict-unifiable (vform) ((vform en ing pass)))))))
(defun of-any-verb () (att (contain ((cat v)))))
(defun nominal () (att (or (contain ((cat n))) (and (contain ((cat a))) (not (defined (node)))))))
(defun common () (att (or (contain ((node NN))) (and (contain ((cat a))) (not (defined (node)))))))

(defun starts-noun-phrase ()
  (in (the a an my your his her our their this these those every me him us them myself himself themselves ourselves)))

(def-rules english-rules
  ; the plan, my answers, every step
  (behind-determiner (seq (word (in (the a an my your our their every))) (word (t)))
    (if (exist-lexitem (high) (high) (pred (nominal))) (delete-if (high) (high) (pred (finite-only)))))
  ; of use, from work, with cries
  (behind-preposition (seq (word (in (of from into with at without between among during per via upon onto towards
                                       toward)))
                           (word (t)))
    (if (exist-lexitem (high) (high) (pred (nominal))) (delete-if (high) (high) (pred (finite-only)))))
  ; would plan, didn't answer, could not use
  (behind-modal (seq (word (in (could would should must "'ll" ll "n't" "'t" nt))) (? (word (in (not never also only))))
                     (lexitem (att (and (contain ((cat v))) (strict-unifiable (vform) ((vform base)))))))
    (delete-if (high) (high) (pred (common))))
  ; he plans, they answer
  (behind-pronoun (seq (word (in (i he she we they))) (lexitem (att (and (contain ((cat v))) (strict-unifiable (vform)
          ((vform pres past)))))))
    (delete-if (high) (high) (pred (common))))
  ; the past years: no preposition
  (behind-article (seq (word (in (the a an my your our their))) (lexitem (att (contain ((cat p))))))
    (if (exist-lexitem (high) (high) (pred (nominal))) (delete-if (high) (high) (pred (att (contain ((cat p))))))))
  ; to the house; to be
  (to-noun (seq (word (in (to))) (word (starts-noun-phrase)))
    (delete-if (low) (low) (pred (att (contain ((own inf)))))))
  (to-verb-only (seq (word (in (to))) (lexitem (att (and (contain ((cat v))) (strict-unifiable (vform)
          ((vform base)))))))
    (if (not (exist-lexitem (high) (high) (pred (nominal)))) (delete-if (low) (low) (pred (att (contain ((cat p))))))))
  ; that he, that the: no determiner
  (that-clause (seq (word (in (that))) (word (in
          (the a an my his our their he she we they i you this these those there it))))
    (if (not (preceded-by-word (pred (in (is was))))) (delete-if (low) (low) (pred (att (contain ((cat d))))))))
  ; See the page, Check your mail; please answer
  (command (seq (^) (lexitem (att (and (contain ((cat v))) (strict-unifiable (vform) ((vform base))))))
                (word (starts-noun-phrase)))
    (delete-if (int 1) (int 1) (pred (att (contain ((node NN) (agr s3)))))))
  (yet-another (seq (word (in (yet))) (word (in (another a more again)))) 
    (delete-if (low) (low) (pred (att (contain (+conj))))))
  (please (seq (word (in (please pls plz))) (lexitem (att (and (contain ((cat v))) (strict-unifiable (vform)
          ((vform base)))))))
    (prog (delete-if (high) (high) (pred (common)))
          (delete-if (low) (low) (pred (of-any-verb)))))
  ; I like, would like
  (like-verb (seq (word (in (i we they you would "'d" "n't" "'t" nt really also to))) (word (in (like))))
    (delete-if (high) (high) (pred (att (not (contain ((cat v))))))))
  ; it's, that's
  (pronoun-is (seq (word (in (it he she that there what who here where how this))) (word (in ("'s"))))
    (delete-if (high) (high) (pred (att (contain ((node Gen)))))))
  ; is open, were cool; have plans, had questions
  (behind-be (seq (word (in (be been being is are was were am "'m" "'re" have has had "'ve" having))) (word (t)))
    (if (exist-lexitem (high) (high) (pred (or (nominal) (att (strict-unifiable (vform) ((vform en ing)))))))
        (delete-if (high) (high) (pred (finite-only)))))
  ; Hope all is well, thank you: whoever writes is left out.
  (hope (seq (^) (word (in (hope thank wish thanks))) (word (in
          (you all this that it everything everyone he she they we i the to my))))
    (delete-if (int 1) (int 1) (pred (att (and (contain ((node NN))) (not (contain ((agr p3)))))))))
  ; about what he said, on how to do it: before a question a preposition may mark a clause.
  (preposition-of-clause (seq (lexitem (att (contain ((cat p))))) (word (in
          (how whether where why when who what which whatever))))
    (assert (make-lexitem (low) (low) (avm (avm ((cat j) (node PSub)))))))
  (with-clause (word (in (with without))) (assert (make-lexitem (low) (high) (avm (avm ((cat j) (node With)))))))
  ; and/or joins like and
  (and-or (seq (word (in (and))) "/" (word (in (or))))
    (prog (skip (comp ($ 2) (low))) (skip (high)) (delete-if (high) (high) (pred (t)))))
  ; want to party: behind `to` a verb is no rarer than a noun.
  (to-verb-rather (:act-on-all-matches) (lexitem (att (and (contain ((cat v))) (strict-unifiable (vform) ((vform base)))
                                                             (or (contain ((freq f8))) (contain ((freq f7))) (contain
                                                                     ((freq f6)))
                                                                 (contain ((freq f5))) (contain ((freq f4)))))))
    (if (preceded-by-word (pred (in (to)))) (add-weight (litem) (int -4))))
  ; five plans
  (behind-number (seq (lexitem (att (contain ((node Num))))) (lexitem (att (contain ((node NN) (agr p3))))))
    (delete-if (high) (high) (pred (finite-only))))
  ; the old plan: `old` is no noun
  (behind-adjective (seq (word (in (the a an my your our their his its this these those every some any no)))
                         (lexitem (and (att (and (contain ((cat a))) (not (defined (node)))))
                                       (no-alternative (att (contain ((cat n))))))) (word (t)))
    (if (exist-lexitem (high) (high) (pred (att (contain ((cat n)))))) (delete-if (high) (high) (pred (finite-only)))))
  ; before he came; after them; by the house
  (before-subject (seq (word (in (before after since until till than as like because))) (word (in (i he she we they))))
    (if (exist-lexitem (low) (low) (pred (att (contain ((node Sub))))))
        (delete-if (low) (low) (pred (att (or (contain ((cat p))) (contain ((node Adv)))))))))
  (before-object (seq (word (in (before after since until till than as like))) (word (in (me him us them))))
    (delete-if (low) (low) (pred (att (contain ((node Sub)))))))
  (before-article (seq (word (in (by over around behind near across along through under above below before since inside
                                 outside past round))) (word (starts-noun-phrase)))
    (delete-if (low) (low) (pred (att (contain ((node Adv)))))))
  ; that is: no conjunction
  (that-is (seq (word (in (that))) (word (in (is was has "'s" are were does did will would can could))))
    (delete-if (low) (low) (pred (att (contain ((node Comp)))))))
  ; Tom's house rather than Tom's here
  (noun-s (lexitem (and (att (contain ((node Aux)))) (surform (in ("'s")))))
    (if (and (followed-by (pred (att (contain ((node NN))))))
             (exist-lexitem (low) (high) (pred (att (contain ((node Gen))))))
             (not (followed-by (pred (att (or (contain ((cat v))) (contain ((cat p))) (contain ((node Adv)))))))))
        (add-weight (litem) (int 3))))
  ; Rod's
  (before-genitive (seq (no (word (in (let)))) (word (in ("'s"))))
    (if (exist-lexitem (low) (low) (pred (att (contain ((cat n)))))) (delete-if (low) (low) (pred (of-any-verb)))))
  ; A capital inside the sentence: a name rather than a verb.
  (capital-verb (:act-on-all-matches) (lexitem (and (of-any-verb) (surform (reg-match "^[A-Z][^A-Z]"))))
    (if (and (int-gt (low) (int 1)) (comp (analyzer) (is-mixed-case)) (not (preceded-by-word (pred (or (starts-anew)
            (in (to please and or))))))
             (exist-lexitem (low) (high) (pred (att (contain ((cat n)))))))
        (delete (litem)))))
