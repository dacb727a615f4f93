; What a sentence can be, and what an incomplete one is at worst: the third form is the penalty.

(roots
  (S (pitem-attvec (not (defined (move)))))
  (Q (pitem-attvec (not (defined (move)))))
  (Imp (t) (int 2))
  (C (t) (int 6))
  (N (t) (int 6))
  (VG (pitem-attvec (not (contain ((vform prd))))) (int 9))
  (I (t) (int 8))
  (SubC (t) (int 8))
  (A (t) (int 8))
  (P (t) (int 8))
  (Adv (t) (int 8))
  (Det (t) (int 12))
  (Aux (t) (int 12))
  (Conn (t) (int 12)))
