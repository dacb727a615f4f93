; Clauses. What a verb takes may stand in any order, so a position takes all of it (*), and the case of each tells what
; it is: a link asks whether the verb still wants such a one, and notes that it is had.

; For the merged item: the subject percolates `agr`, in which the finite verb has nominatives only; objects are told by
; their case.
(defun as-subject () (and (pitem-attvec (contain (+nom))) (pitem-attvec (modify (-nom)))))
(defun as-object ()
  (and (pitem-attvec (contain (+acc))) (pitem-modifier (pitem-attvec (unifiable (accusative))))
       (pitem-attvec (modify (-acc)))))
(defun as-indirect-object ()
  (and (pitem-attvec (contain (+dat))) (pitem-modifier (pitem-attvec (unifiable (dative))))
       (pitem-attvec (modify (-dat)))))
(defun as-clause () (and (pitem-attvec (contain (+clause))) (pitem-attvec (modify (-clause)))))
(defun complete ()
  (pitem-attvec (not (or (contain (+nom)) (contain (+acc)) (contain (+dat))))))
(defun in-front () (pitem-attvec (modify (+front))))

; An object before the subject is possible, but dearer: it decides where the cases do not (Die Frau sieht das Kind).
(defun object-first () (pitem-add-weight 0.5))
(defun object-behind-verb () (if (pitem-attvec (contain (+nom))) (object-first) (t)))
(defun subject-at-the-end () (if (pitem-attvec (contain (+acc))) (object-first) (t)))

; At the end of its clause: ... gibt, ... gegeben hat, ... müde ist. A verb with its particle apart does not stand
; there. An auxiliary hands over `vform` and `perf`, what it wants; with it the group is finite.
(defun copula () (pitem-attvec (contain ((vform prd)))))
(defun predicate () (pitem-attvec (and (undefine (agr)) (modify ((vform prd) +nom)))))
(def-modifiers V (:head))
(def-modifiers VK
  (:head (V (head-cond (pitem-attvec (not (defined (particle))))))
         (Pred (head-cond (predicate)))
         (PP (percolate ()) (head-cond (and (predicate) (pitem-add-weight 1)))))
  (? (Aux (dep-type aux) (percolate (vform agr perf)) (modifier-cond (not (copula)))
          (merged-cond (pitem-attvec (modify ((vform fin))))))
     (Aux (dep-type cop) (percolate (vform agr perf)) (modifier-cond (copula))
          (merged-cond (pitem-attvec (modify ((vform fin))))))))

; What stands before it: ... dem Kind das Buch gibt.
(def-modifiers VF
  (* (N (dep-type nsubj) (percolate (agr)) (merged-cond (and (subject-at-the-end) (as-subject))))
     (N (dep-type obj) (percolate ()) (merged-cond (as-object)))
     (N (dep-type iobj) (percolate ()) (merged-cond (as-indirect-object)))
     (PP (dep-type obl) (percolate ()))
     (Adv (dep-type advmod)))
  (:head (VK)))

; A main clause: one phrase in front (none in a question), the finite verb, and the rest behind it.
(def-modifiers SV
  (? :skip-word (str= ",")
     (N (dep-type nsubj) (percolate (agr)) (merged-cond (and (as-subject) (in-front))))
     (N (dep-type obj) (percolate ()) (merged-cond (and (as-object) (object-first) (in-front))))
     (N (dep-type iobj) (percolate ()) (merged-cond (and (as-indirect-object) (in-front))))
     (PP (dep-type obl) (percolate ()) (merged-cond (in-front)))
     (Adv (dep-type advmod) (merged-cond (in-front)))
     (SubC (dep-type advcl) (percolate ()) (modifier-cond (pitem-attvec (contain (+adverbial))))
           (merged-cond (in-front))))
  (:head (V (head-cond (pitem-attvec (and (strict-unifiable (vform) ((vform fin))) (not (contain (+final))))))))
  (* (N (dep-type nsubj) (percolate (agr)) (merged-cond (as-subject)))
     (N (dep-type obj) (percolate ()) (merged-cond (and (object-behind-verb) (as-object))))
     (N (dep-type iobj) (percolate ()) (merged-cond (as-indirect-object)))
     (PP (dep-type obl) (percolate ()))
     (Adv (dep-type advmod)))
  (? (Prt (dep-type compound:prt) (percolate (particle))
          (modifiee-cond (pitem-attvec (defined (particle)))) (merged-cond (pitem-attvec (undefine (particle))))))
  (? :skip-word (str= ",")
     (SubC (dep-type ccomp) (percolate ()) (modifier-cond (pitem-attvec (contain (-adverbial)))) (merged-cond (as-clause)))
     (SubC (dep-type advcl) (percolate ()) (modifier-cond (pitem-attvec (contain (+adverbial)))))))

; ... with an auxiliary, and all but one phrase between it and the verb at the end.
(def-modifiers SA
  (? :skip-word (str= ",")
     (N (dep-type nsubj) (percolate (agr)) (merged-cond (and (as-subject) (in-front))))
     (N (dep-type obj) (percolate ()) (merged-cond (and (as-object) (object-first) (in-front))))
     (N (dep-type iobj) (percolate ()) (merged-cond (and (as-indirect-object) (in-front))))
     (PP (dep-type obl) (percolate ()) (merged-cond (in-front)))
     (Adv (dep-type advmod) (merged-cond (in-front)))
     (SubC (dep-type advcl) (percolate ()) (modifier-cond (pitem-attvec (contain (+adverbial))))
           (merged-cond (in-front))))
  ((Aux (dep-type aux) (percolate (vform agr perf)) (modifier-cond (not (copula))))
   (Aux (dep-type cop) (percolate (vform agr perf)) (modifier-cond (copula))))
  (:head (VF))
  (? :skip-word (str= ",")
     (SubC (dep-type ccomp) (percolate ()) (modifier-cond (pitem-attvec (contain (-adverbial)))) (merged-cond (as-clause)))
     (SubC (dep-type advcl) (percolate ()) (modifier-cond (pitem-attvec (contain (+adverbial)))))))

(def-modifiers S
  (:head (SV (head-cond (and (complete) (pitem-attvec (not (defined (particle)))))))
         (SA (head-cond (complete)))))
(def-category S (conj-atts () (front)))

; Clauses with the verb at the end.
(defun verb-final () (and (complete) (pitem-attvec (strict-unifiable (vform) ((vform fin))))))
(def-modifiers SubC
  ((Comp (dep-type mark) (percolate (adverbial))))
  (:head (VF (head-cond (verb-final)))))

; The relative pronoun is what its clause lacks: no gap is needed.
(defun goes-back () (and (complete) (unify2 (pitem-attvec) (pitem-modifier (pitem-attvec)) (ante))))
(def-modifiers Rel
  ((RelPro (dep-type nsubj) (percolate (agr)) (merged-cond (and (as-subject) (goes-back))))
   (RelPro (dep-type obj) (percolate ()) (merged-cond (and (as-object) (goes-back))))
   (RelPro (dep-type iobj) (percolate ()) (merged-cond (and (as-indirect-object) (goes-back)))))
  (:head (VF (head-cond (pitem-attvec (strict-unifiable (vform) ((vform fin))))))))

; What a sentence can be; without a verb, or with nothing in front of it, at a price.
(roots
  (S (if (pitem-attvec (contain (+front))) (t) (pitem-followed-by-or-end-with-word (in ("?")))))
  (N (t) (int 8))
  (SubC (t) (int 8)))
