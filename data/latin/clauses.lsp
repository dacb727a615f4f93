; Clauses. What a verb takes may stand before or behind it in any order; the case of each tells what it is. A link asks
; whether there is still room for such a one, and notes that it is had.

(defun finite () (pitem-attvec (strict-unifiable (vform) ((vform fin)))))
(defun infinitive () (pitem-attvec (strict-unifiable (vform) ((vform inf)))))

; For the merged item. The subject of a finite verb is a nominative, that of an infinitive an accusative.
(defun as-subject ()
  (and (finite) (pitem-attvec (contain (+subj))) (pitem-modifier (pitem-attvec (unifiable ((case nom)))))
       (pitem-attvec (modify (-subj)))))
(defun as-subject-of-infinitive ()
  (and (infinitive) (pitem-attvec (contain (+subj))) (pitem-modifier (pitem-attvec (unifiable ((case acc)))))
       (pitem-attvec (modify (-subj)))))
(defun as-object ()
  (and (pitem-attvec (contain (+acc))) (pitem-modifier (pitem-attvec (unifiable ((case acc)))))
       (pitem-attvec (modify (-acc)))))
(defun as-indirect-object ()
  (and (pitem-attvec (contain (+dat))) (pitem-modifier (pitem-attvec (unifiable ((case dat)))))
       (pitem-attvec (modify (-dat)))))
(defun as-clause () (and (pitem-attvec (contain (+aci))) (pitem-attvec (modify (-aci)))))
; By sword, by night: an ablative without a preposition.
(defun ablative () (pitem-attvec (strict-unifiable (case) ((case abl)))))
; The subject of an infinitive stands before its object, if cases do not tell: so an object taken to the left of it is dear.
(defun object-has-room () (if (pitem-attvec (contain (+acc))) (pitem-add-weight 1) (t)))
(defun complete () (pitem-attvec (not (or (contain (+acc)) (contain (+dat)) (contain (+aci))))))

(def-modifiers V (:head))
(def-modifiers Cl
  (* :skip-word (str= ",")
     (SubC (dep-type advcl) (percolate ()) (modifier-cond (pitem-following-word (str= ",")))))
  (* (N (dep-type nsubj) (percolate (num person)) (merged-cond (as-subject)))
     (N (dep-type nsubj) (percolate (num)) (merged-cond (and (object-has-room) (as-subject-of-infinitive))))
     (N (dep-type obj) (percolate ()) (merged-cond (as-object)))
     (N (dep-type iobj) (percolate ()) (merged-cond (as-indirect-object)))
     (N (dep-type obl) (percolate ()) (dep-weight 2) (modifier-cond (ablative)))
     (Cl (dep-type ccomp) (percolate ()) (modifier-cond (and (complete) (infinitive))) (merged-cond (as-clause)))
     (PP (dep-type obl) (percolate ()))
     (Adv (dep-type advmod)))
  (:head (V))
  (* (N (dep-type nsubj) (percolate (num person)) (merged-cond (as-subject)))
     (N (dep-type obj) (percolate ()) (merged-cond (as-object)))
     (N (dep-type iobj) (percolate ()) (merged-cond (as-indirect-object)))
     (N (dep-type obl) (percolate ()) (dep-weight 2) (modifier-cond (ablative)))
     (Cl (dep-type ccomp) (percolate ()) (modifier-cond (and (complete) (infinitive))) (merged-cond (as-clause)))
     (PP (dep-type obl) (percolate ()))
     (Adv (dep-type advmod)))
  (* :skip-word (str= ",")
     (SubC (dep-type advcl) (percolate ()))))

; rosa pulchra est: a predicate agrees with its subject in number and gender, and has its case. Positions to the left of
; a head are filled before those to its right; so `est`, which decides the case, comes in at a node of its own.
(def-category Pred (visible-atts (vform num case gender)))
(def-category PredS (visible-atts (vform num subj)))
(defun case-of-subject ()
  (if (finite) (pitem-attvec (unify ((case nom)))) (pitem-attvec (unify ((case acc))))))
(def-modifiers Pred
  (* (Adv (dep-type advmod)))
  (:head (A) (PP (head-cond (pitem-add-weight 1))))
  ((Aux (dep-type cop) (percolate (vform num)) (merged-cond (case-of-subject)))))
(def-modifiers PredS
  (? (N (dep-type nsubj) (percolate (case num gender))))
  (:head (Pred)))
(def-subclass Cl (PredS))

(def-modifiers SubC
  ((Comp (dep-type mark)))
  (:head (Cl (head-cond (and (complete) (finite))))))

; The relative pronoun is what its clause lacks.
(defun goes-back ()
  (prog (pitem-attvec (undefine (num gender)))
        (unify2 (pitem-attvec) (pitem-modifier (pitem-attvec)) (num gender))))
(def-modifiers Rel
  ((RelPro (dep-type nsubj) (percolate (num)) (merged-cond (and (as-subject) (complete) (goes-back))))
   (RelPro (dep-type obj) (percolate ()) (merged-cond (and (as-object) (complete) (goes-back))))
   (RelPro (dep-type iobj) (percolate ()) (merged-cond (and (as-indirect-object) (complete) (goes-back)))))
  (:head (Cl (head-cond (finite)))))

(roots
  (Cl (and (complete) (finite)))
  (N (t) (int 8))
  (Cl (and (complete) (infinitive)) (int 12)))
