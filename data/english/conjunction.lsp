; Coordination. (conj-atts SAME CONSISTENT): both conjuncts must have, or lack, the attributes SAME, and
; agree in CONSISTENT. The words that join are flagged by a rule, see rules.lsp.

(def-category NB (conj-atts () (wh)))
(def-category N (conj-atts () (case)))
(def-category A (conj-atts () (wh)))
(def-category Adv (conj-atts () (wh)))
(def-category P (conj-atts () (wh)))
(def-category Num (conj-atts () (agr)))
(def-category VP (conj-atts (move) (vform)))
(def-category VG (conj-atts (move) (vform)))
(def-category VF (conj-atts (move) (agr)))
(def-category S (conj-atts (move) (wh)))
(def-category Q (conj-atts (move) (wh)))
(def-category I (conj-atts (move) (wh)))
(def-category C (conj-atts (move) (wh)))
(def-category RelS (conj-atts () (wh)))
(def-category SubC (conj-atts () (wh)))
(def-category Det (conj-atts () (wh)))
(def-category Aux (conj-atts () (vform own)))

; Two are many: John and Mary are.
(def-conj-constraints N (merged-cond (pitem-attvec (modify ((agr p3))))))
; Finite groups are joined as such.
(def-conj-constraints VG
  (merged-cond (pitem-attvec (strict-unifiable (vform) ((vform base ing en pass inf prd))))))
(def-conj-constraints NB (merged-cond (pitem-attvec (modify ((agr p3) -count)))))
