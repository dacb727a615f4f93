; Clauses.

(defun with-gap () (pitem-attvec (defined (move))))
(defun no-gap () (pitem-attvec (not (defined (move)))))
(defun nominative () (pitem-attvec (unifiable ((case nom)))))
(defun wh () (pitem-attvec (contain (+wh))))
(defun marked () (pitem-attvec (contain (+marked))))
(defun finite () (pitem-attvec (unify ((vform pres past fin)))))

; she reads
(def-modifiers S
  (* :skip-word (str= ",")
     (Conn (dep-type conn) (modifier-cond (int-eq (pitem-low) (int 1))))
     (P (dep-type mod) (percolate ()) (dep-weight 1.2))
     (Adv (dep-type mod) (percolate ()))
     (N (dep-type time) (percolate ()) (modifier-cond (pitem-attvec (contain (+time)))))
     (SubC (dep-type sub))
     (I (dep-type purpose) (dep-weight 2))
     (VG (dep-type sub) (percolate ()) (dep-weight 2)
         (modifier-cond (pitem-attvec (strict-unifiable (vform) ((vform ing pass)))))))
  ((N (dep-type subj) (percolate (agr wh)) (modifier-cond (nominative)))
   (I (dep-type subj) (percolate ()) (dep-weight 2))
   (C (dep-type subj) (percolate ()) (dep-weight 2) (modifier-cond (marked)))
   (Adv (dep-type pred) (percolate (wh)) (dep-weight 2)
        (modifier-cond (pitem-attvec (and (contain (+wh)) (contain (+loc))))))
   (A (dep-type pred) (percolate (wh)) (dep-weight 2) (modifier-cond (wh))))
  (:head (VG (head-cond (finite)))))

; does she read, what does she read
(def-modifiers Q
  (* :skip-word (str= ",")
     (Conn (dep-type conn) (modifier-cond (int-eq (pitem-low) (int 1))))
     (P (dep-type mod) (percolate ()))
     (Adv (dep-type mod) (percolate ()))
     (SubC (dep-type sub)))
  (? (N (dep-type wh) (percolate (wh)) (check-slash np) (modifier-cond (wh)) (modifiee-cond (with-gap)))
     (Adv (dep-type wh) (percolate (wh)) (modifier-cond (wh)))
     (A (dep-type wh) (percolate (wh)) (modifier-cond (wh)))
     (P (dep-type wh) (percolate (wh)) (modifier-cond (wh))))
  ((Aux (dep-type aux) (percolate (vform)) (modifier-cond (pitem-attvec (contain ((own fin)))))))
  (? (Neg (dep-type neg)))
  ((N (dep-type subj) (percolate ()) (modifier-cond (nominative))))
  (:head (VG (modifier-cond (pitem-attvec (strict-unifiable (vform) ((vform base en ing pass prd))))))))

; read!
(def-modifiers Imp
  (* :skip-word (str= ",")
     (Conn (dep-type conn) (modifier-cond (int-eq (pitem-low) (int 1))))
     (P (dep-type mod) (percolate ()))
     (Adv (dep-type mod) (percolate ()))
     (SubC (dep-type sub)))
  (? (Aux (dep-type aux) (percolate ())
          (modifier-cond (pitem-attvec (contain ((own fin) (vform base) (agr s2)))))))
  (? (Neg (dep-type neg)))
  (:head (VG (head-cond (pitem-attvec (unify ((vform base))))))))

; to read, for her to read
(def-modifiers I
  (? (P (dep-type subj) (percolate ()) (dep-weight 1.5)
        (modifier-cond (pitem-attvec (contain ((pform for)))))))
  (:head (VG (head-cond (pitem-attvec (strict-unifiable (vform) ((vform inf))))))))

; how to read, what to read
(def-modifiers WhI
  ((N (dep-type wh) (percolate ()) (check-slash np) (modifier-cond (wh)) (modifiee-cond (with-gap)))
   (Adv (dep-type wh) (percolate ()) (modifier-cond (wh)))
   (Comp (dep-type mark)))
  (:head (I)))

; that she reads, where she reads, what she reads
(defun mark () (pitem-attvec (modify (+marked))))

(def-modifiers C
  (? (Comp (dep-type mark) (merged-cond (mark)))
     (N (dep-type wh) (percolate ()) (check-slash np) (modifier-cond (wh)) (modifiee-cond (with-gap))
        (merged-cond (mark)))
     (Adv (dep-type wh) (percolate ()) (modifier-cond (wh)) (merged-cond (mark)))
     (A (dep-type wh) (percolate ()) (modifier-cond (wh)) (merged-cond (mark)))
     (P (dep-type wh) (percolate ()) (modifier-cond (wh)) (merged-cond (mark))))
  (:head (S)))
(def-subclass C (WhI))

; when she reads, while reading
(def-modifiers SubC
  (? (Adv (dep-type mod) (percolate ()) (modifier-cond (pitem-attvec (contain (+deg))))))
  ((Sub (dep-type mark)))
  (:head (S (head-cond (no-gap)))
         (VG (head-cond (pitem-attvec (strict-unifiable (vform) ((vform ing pass))))))))

; Relative clauses: who reads (the subject is missing) ...
(def-modifiers RelS
  ((RelPro (dep-type subj))
   (N (dep-type subj) (percolate ()) (modifier-cond (pitem-attvec (contain (+rel))))))
  (:head (VG (head-cond (finite)))))

; ... (that) she reads __ ...
(def-modifiers RelO
  (? (RelPro (dep-type rel) (check-slash np))
     (N (dep-type rel) (percolate ()) (check-slash np) (modifier-cond (pitem-attvec (contain (+rel))))))
  (:head (S (percolate (move)) (head-cond (with-gap)))))

; ... where she reads, in which she reads.
(def-modifiers RelA
  ((Adv (dep-type rel) (percolate ()) (modifier-cond (wh)))
   (P (dep-type rel) (percolate ()) (modifier-cond (wh))))
  (:head (S (percolate ()) (head-cond (no-gap)))))

