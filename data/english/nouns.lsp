; Noun phrases, from the inside out. An item that enters at the :head position takes what waits to its
; left, nearest position first; what stands to the right of :head is added afterwards.

(def-modifiers Det
  (* (Adv (dep-type mod) (modifier-cond (pitem-attvec (contain (+deg)))) (percolate (wh)))
     (Det (dep-type det) (percolate ()) (modifier-cond (pitem-head-word (in (a the every no))))
          (modifiee-cond (pitem-attvec (contain (+few))))))
  (:head))

(def-modifiers Num
  (* (Num (dep-type num) (percolate ())) (Adv (dep-type mod) (modifier-cond (pitem-attvec (contain (+deg))))))
  (:head))

; a two year contract, a three bedroom house: a number and a singular before the noun.
(def-modifiers Meas
  (:skip-word (str= "-") (Num (dep-type num) (percolate ())))
  (:head (NN (percolate ())
             (head-cond (if (pitem-head-word (in (percent % year month week day hour minute second mile foot inch
                                                   meter metre
                                                  kilometer kilometre pound ton liter litre gallon star way)))
                            (pitem-add-weight -1.5)
                            (t)))
             (modifier-cond (and (pitem-attvec (strict-unifiable (agr) ((agr s3))))
                              (pitem-attvec (not (contain (+proper)))))))))

(def-modifiers NB
  (* :skip-word (str= ",")
     (Meas (dep-type nn) (percolate ()) (dep-weight 3))
     (A (dep-type mod) (modifier-cond (pitem-attvec (not (contain (+heavy))))))
     (NN (dep-type nn) (percolate ()) (dep-weight 1.5) (modifier-cond (not (pitem-following-word (str= ","))))
         (merged-cond (if (pitem-modifier (pitem-attvec (strict-unifiable (agr) ((agr p3)))))
                          (pitem-add-weight 1.5)
                          (t)))))
  (:head (NN)))

(def-modifiers NPoss
  (:head (N (percolate (wh)) (head-cond (pitem-following-word (in ("'s" "'"))))))
  ((Gen (dep-type case) (percolate (spec)))))

(def-modifiers N0
  ; as good a singer, too big a risk
  (? (A (dep-type mod) (percolate ()) (modifier-cond (and (int-gt (pitem-length) (int 0))
                                                       (pitem-following-word (in (a an)))))
        (modifiee-cond (pitem-attvec (contain (+spec)))))
     (Det (dep-type predet) (modifier-cond (pitem-attvec (contain (+pre)))) (percolate (wh))
          (modifiee-cond (and (pitem-attvec (defined (spec))) (pitem-attvec (not (contain (+pro (case nom)))))))))
  (? (Det (dep-type det) (percolate (agr spec wh rel)) (modifiee-cond (not-pro))
          (merged-cond (if (pitem-attvec (contain (+proper))) (pitem-add-weight 1) (t))))
     (NPoss (dep-type gen) (percolate (spec wh rel)) (modifiee-cond (not-pro))))
  ; three, the last few, the first two
  (* (Num (dep-type num) (percolate (agr spec counted)) (modifiee-cond (not-pro)))
     (A (dep-type mod) (percolate ()) (modifier-cond (pitem-head-word (in (last next past first second other same final
                                                                           following previous remaining top only))))
        (modifiee-cond (pitem-attvec (contain (+counted))))))
  (:head (NB)
         (Pro)
         ; the rich, the same: an adjective that has a determiner (see `determined`)
         (A (head-cond (and (pitem-attvec (modify (-pro +part)))
                            (if (pitem-head-word (in (best worst same latest other least former latter following first
                                                      last next poor rich elderly dead unemployed)))
                                (pitem-add-weight 3)
                                (pitem-add-weight 5)))))
         ; two of them, some of them: dearer than two books, some books
         (Num (head-cond (and (pitem-attvec (modify (+pro +part))) (pitem-add-weight 1.5))))
         (Det (head-cond (and (pitem-attvec (contain (+alone))) (pitem-attvec (modify (+pro +part)))
                              (pitem-add-weight 1.5))))))

; A singular that wants a determiner and has none is possible (by car, go to school), but dear.
(defun determined ()
  (cond ((pitem-attvec (defined (spec))) (t))
        ((pitem-attvec (contain (-pro))) (nil))
        ((pitem-attvec (and (contain (+count)) (unifiable ((agr s3))))) (pitem-add-weight 5))
        ((t) (t))))

; What a preposition behind a noun costs, so that it goes to the verb where that is likelier.
(defun noun-or-verb ()
  (cond ((pitem-modifier (pitem-attvec (contain ((pform of))))) (t))
        ((noun-has-frame) (pitem-add-weight -1))
        ((pitem-attvec (contain (+part))) (pitem-add-weight 3))
        ((pitem-modifier (pitem-attvec (or (contain (+verbal)) (contain (+time))))) (pitem-add-weight 2.5))
        ((pitem-attvec (contain (+proper))) (pitem-add-weight 1))
        ((t) (t))))

; $ 5, # 1
(defun sign-of-number () (pitem-head-word (in ("$" "\194\163" "\226\130\172" "#"))))

; Not: yesterday that ..., them who ...
(defun relatable () (pitem-attvec (not (contain (+pro +time)) (contain (+pro (case acc))))))

(defun free () (and (pitem-attvec (contain (+pro +wh))) (pitem-head-word (in (what whatever whoever)))))
(defun no-question () (pitem-attvec (undefine (wh))))

(def-modifiers N
  (? (Neg (dep-type neg) (dep-weight 4)))
  (? (Adv (dep-type mod) (percolate ()) (dep-weight 1.5) (modifier-cond (pitem-attvec (contain (+focus))))))
  (:head (N0 (head-cond (determined))))
  (* (P (dep-type mod) (percolate ()) (modifier-cond (no-gap)) (merged-cond (noun-or-verb))
        (modifiee-cond (pitem-attvec (or (not (contain (+pro))) (contain (+some)) (contain (+part))))))
     ; most of whom, some of which
     (P (dep-type mod) (percolate (wh)) (modifier-cond (and (wh) (no-gap) (pitem-attvec (contain ((pform of))))))
        (modifiee-cond (pitem-attvec (contain (+part)))))
     ; us all, you both
     (Det (dep-type det) (percolate ()) (modifier-cond (pitem-head-word (in (all both each))))
          (modifiee-cond (pitem-attvec (contain (+pro (agr p1)) (+pro (agr p2)) (+pro (agr p3))))))
     (RelS (dep-type rel) (modifiee-cond (relatable)))
     ; what he wants, whatever happens, as noun phrases
     (S (dep-type rel) (percolate (move)) (check-slash np) (dep-weight 3.5) (modifier-cond (with-gap))
        (modifiee-cond (free)) (merged-cond (no-question)))
     (VF (dep-type rel) (percolate ()) (dep-weight 3.5) (modifier-cond (no-gap)) (modifiee-cond (free))
         (merged-cond (no-question)))
     (RelO (dep-type rel) (percolate (move)) (check-slash np) (modifier-cond (marked)) (modifiee-cond (relatable)))
     (RelO (dep-type rel) (percolate (move)) (check-slash np) (dep-weight 4) (modifier-cond (not (marked)))
           (modifiee-cond (or (pitem-attvec (or (not (contain (+pro))) (contain (+some)))) (pitem-head-word (in
                   (all))))))
     (RelA (dep-type rel) (dep-weight 1.5))
     ; the way he does it, the day they met
     (S (dep-type rel) (percolate ()) (dep-weight 3) (modifier-cond (no-gap))
        (modifiee-cond (pitem-attvec (and (contain (+spec)) (comp (att-str-val lexitem) (in
                (way time day moment reason)))))))
     (PC (dep-type vrel) (percolate ()) (modifiee-cond (not-pro)))
     (VG (dep-type vrel) (percolate ()) (dep-weight 4) (modifiee-cond (not-pro)) (modifier-cond (participial)))
     (C (dep-type comp) (percolate ()) (modifiee-cond (pitem-attvec (contain (+that)))) (modifier-cond (no-gap)))
     (I (dep-type comp) (percolate (cm))
        (modifiee-cond (pitem-attvec (or (not (contain (+pro))) (contain (+some)))))
        (merged-cond (if (pitem-attvec (or (contain (+to)) (contain (+some)))) (t) (pitem-add-weight 2))))
     (A (dep-type mod) (percolate ()) (dep-weight 2.5) (modifier-cond (pitem-attvec (contain (+heavy))))
        (modifiee-cond (pitem-attvec (not (contain (+pro)) (contain (+proper))))))
     (A (dep-type mod) (percolate ()) (modifiee-cond (pitem-attvec (contain (+some)))))
     (N (dep-type appo) (percolate ()) (dep-weight 3) (modifier-cond (pitem-attvec (contain (+proper))))
        (modifiee-cond (pitem-attvec (and (contain (+spec)) (not (contain (+pro))) (not (contain (+proper)))))))
     (Num (dep-type num) (percolate ())
          (modifiee-cond (or (pitem-attvec (or (contain (+proper)) (contain (+time)))) (sign-of-number)))))
  ; Between commas, dashes or brackets; the closing one becomes part of the noun phrase.
  (* :skip-word (opens)
     (N (dep-type appo) (percolate ()) (dep-weight 3) (modifier-cond (closed-off))
        (merged-cond (include-following-word (closes))))
     (RelS (dep-type rel) (modifier-cond (closed-off)) (merged-cond (include-following-word (closes))))
     (RelA (dep-type rel) (modifier-cond (closed-off)) (merged-cond (include-following-word (closes))))
     (A (dep-type mod) (percolate ()) (dep-weight 3) (modifier-cond (closed-off))
        (merged-cond (include-following-word (closes))))
     (VG (dep-type vrel) (percolate ()) (dep-weight 3.5)
         (modifier-cond (and (closed-off) (participial)))
         (merged-cond (include-following-word (closes))))
     (Paren (dep-type paren) (percolate ()) (dep-weight 3) (modifiee-cond (not-pro)))))

; A gerund counts as a noun phrase, without taking part in what N does: it is passed through.
(def-modifiers Ger
  (? (NPoss (dep-type gen)) (Det (dep-type det) (percolate ()) (dep-weight 3)))
  (:head (VG (head-cond (pitem-attvec (and (strict-unifiable (vform) ((vform ing)))
                                           (undefine (vform agr))
                                           (unify ((agr s3)))))))))
(def-subclass N (Ger (dep-weight 2)))

; Adjectives, adverbs, prepositions.
(defun heavy () (pitem-attvec (modify (+heavy))))

(def-modifiers A
  (? (Neg (dep-type neg) (dep-weight 3)))
  (* (Adv (dep-type mod) (modifier-cond (pitem-attvec (not (contain (+loc)) (contain (+front))))) (percolate (wh)))
     (N (dep-type measure) (modifier-cond (pitem-attvec (contain (+time)))) (percolate ()) (dep-weight 1.5)))
  ; very impressed, clean and redlined: a participle
  (:head (V (percolate ()) (modifier-cond (and (int-eq (pitem-length) (int 0)) (participial))) (head-cond
          (pitem-add-weight 2))))
  (* (P (dep-type mod) (percolate (move)) (dep-weight 1.3) (merged-cond (heavy)))
     (I (dep-type comp) (percolate (cm)) (dep-weight 1.5) (merged-cond (heavy)))
     (SubC (dep-type mod) (percolate ()) (dep-weight 1.5) (merged-cond (heavy)))
     (PC (dep-type sub) (percolate ()) (merged-cond (heavy)))
     (Adv (dep-type mod) (percolate ()) (modifier-cond (pitem-head-word (in (enough)))))))

(def-modifiers Adv
  (* (Adv (dep-type mod) (modifier-cond (pitem-attvec (contain (+deg)))) (percolate (wh))
          (modifiee-cond (not (wh)))))
  (:head)
  (? (P (dep-type mod) (percolate ()) (dep-weight 1.5) (modifier-cond (no-gap))
        (modifiee-cond (pitem-attvec (contain (+loc)))))))

(def-modifiers P
  (? (Neg (dep-type neg) (dep-weight 3))
     (Adv (dep-type mod) (percolate ())
       (modifier-cond (pitem-attvec (or (contain (+deg)) (contain (+loc)) (contain (+focus)))))
          (dep-weight 1.5)))
  (:head))
