(def-category Det (visible-atts (num)))
(def-category Adv)
(def-category N (visible-atts (num case)) (conj-atts () (num)))
(def-category P (visible-atts (move)))
(def-category V (visible-atts (num move)))
(def-category S (visible-atts (move)))
(defun no-gap () (pitem-attvec (not (defined (move)))))

(def-modifiers N
  (? (Det (dep-type det) (percolate (num))))
  (:head)
  (* (P (dep-type mod) (modifier-cond (no-gap)))))

(def-modifiers P
  (:head))

(def-modifiers V
  (* (Adv (dep-type mod)))
  (:head)
  (* (P (dep-type mod) (dep-weight 1.5))))

(def-modifiers S
  ((N (dep-type subj)
      (percolate (num))
      (merged-cond
        (if (no-gap) (t) (pitem-add-weight 2)))))
  (:head (V)))
(roots
  (S (no-gap))
  (N (t) (int 5)))
