; What a sentence can be, and what an incomplete one is at worst: the third form is the penalty.

(roots
  (S (pitem-attvec (not (defined (move)))))
  (Q (pitem-attvec (not (defined (move)))))
  (QP)
  (Imp (t) (int 5))
  (C (t) (int 6))
  (WhI (t) (int 6))
  (N (t) (int 3))
  (VG (pitem-attvec (not (contain ((vform prd))))) (int 9))
  (I (t) (int 8))
  (Intj (t) (int 6))
  (SubC (t) (int 14))
  (A (t) (int 5))
  (P (int-gt (pitem-length) (int 0)) (int 8))
  (Adv (t) (int 8))
  (Sign (t) (int 20))
  (Text (t) (int 10)))
