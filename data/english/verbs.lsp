; Verbs. V takes its arguments through frame nodes that the parser makes from `args`: for (args ((cat n)
; ...) ((cat c) ...)) a node V_N_C that hands its finished items to V.

; make him go: a frame with conditions of its own, so it is written out.
(def-modifiers V (:head))
(def-subcat V_N_VB V
  (:head)
  ((N (dep-type obj) (percolate (case))))
  ((VP (dep-type comp) (percolate (move))
       (modifier-cond (pitem-attvec (strict-unifiable (vform) ((vform base ing pass))))))))

; What a form of `be` can stand before; a noun rather less than an adjective, and both less than a participle.
; put it there: the place belongs to the verb, however near the object is.
(def-subcat V_N_P V
  (:head)
  (:skip-adjunct (N (dep-type obj) (check-arg 0) (percolate (case move))))
  (:skip-adjunct (P (dep-type loc) (check-arg 1) (percolate (move)) (merged-cond (pitem-add-weight -1.5)))))

; come visit us, help explain it
(def-subcat V_VB V
  (:head)
  ((VP (dep-type comp) (percolate (move))
       (modifier-cond (pitem-attvec (strict-unifiable (vform) ((vform base))))))))

(defun to-predicate () (and (comp (pitem-low) (is-case-marked)) (pitem-attvec (modify ((vform prd))))))

; A verb phrase is a verb or what a form of `be` makes a predicate, with its adjuncts.
(def-modifiers VP
  (:head (V)
         (A (percolate (move)) (head-cond (and (to-predicate) (pitem-add-weight 0.2))))
         (N (percolate (move)) (head-cond (and (to-predicate) (pitem-add-weight 1))))
         (P (percolate (move)) (head-cond (to-predicate)))
         (Adv (percolate ()) (modifier-cond (pitem-attvec (contain (+loc)))) (head-cond (to-predicate)))
         (I (percolate (move)) (modifier-cond (pitem-attvec (not (contain (-cm)))))
           (head-cond (and (to-predicate) (pitem-add-weight 1.5))))
         ; this is because he left, that was when we met
         (SubC (percolate ()) (modifier-cond (pitem-preceding-word (in (is was "'s" not just only simply partly))))
               (head-cond (and (to-predicate) (pitem-add-weight 3))))
         ; all you have to do is ask
         (V (percolate ()) (modifier-cond (and (pitem-preceding-word (in (is was))) (no-gap)))
            (head-cond (and (pitem-attvec (strict-unifiable (vform) ((vform base)))) (to-predicate)
                    (pitem-add-weight 4))))
         (C (percolate (move)) (modifier-cond (marked)) (head-cond (and (to-predicate) (pitem-add-weight 1)))))
  (* :skip-word (opens)
     (P (dep-type mod) (percolate (move)) (dep-weight 0.2)
        (merged-cond (cond ((pitem-modifier (pitem-attvec (contain ((pform of))))) (pitem-add-weight 2))
                           ((verb-has-frame) (pitem-add-weight -1))
                           ((t) (t)))))
     (Adv (dep-type mod) (percolate ()) (dep-weight 1.1)
          (modifier-cond (pitem-attvec (and (not (contain (+deg))) (not (contain (+front)))))))
     (N (dep-type time) (percolate ()) (dep-weight 1.1) (modifier-cond (pitem-attvec (contain (+time))))
        ; ways, days: a bare plural hardly tells when
        (merged-cond (if (pitem-modifier (pitem-attvec (and (strict-unifiable (agr) ((agr p3)))
                                                            (not (contain (+spec) (+counted) (+proper))))))
                         (pitem-add-weight 3)
                         (t))))
     (N (dep-type time) (percolate ()) (dep-weight 4)
        (modifier-cond (pitem-attvec (and (not (contain (+time))) (contain (+counted))))))
     (Intj (dep-type discourse) (percolate ()) (dep-weight 1.2))
     (Paren (dep-type paren) (percolate ()) (dep-weight 2.5))
     (SubC (dep-type sub) (percolate ()) (dep-weight 1.3))
     (Abs (dep-type sub) (percolate ()) (dep-weight 5) (modifier-cond (pitem-preceding-word (str= ","))))
     (PC (dep-type sub) (percolate ()) (dep-weight 0.5))
     (A (dep-type pred) (percolate ()) (dep-weight 5))
     (C (dep-type sub) (percolate ()) (dep-weight 3) (modifier-cond (and (marked) (no-gap))))
     (I (dep-type purpose) (percolate (move cm)) (dep-weight 2))
     (VG (dep-type sub) (percolate ()) (dep-weight 2.5)
         (modifier-cond (and (no-gap) (pitem-attvec (strict-unifiable (vform) ((vform ing))))))
         ; ..., killing several people: behind a comma it hardly belongs to a noun.
         (merged-cond (if (pitem-modifier (set-off)) (pitem-add-weight -2) (t))))))

(def-subclass Adjunct
  (Adv (modifier-cond (pitem-attvec (not (contain (+deg))))))
  (P (modifier-cond (no-gap)))
  (N (modifier-cond (pitem-attvec (contain (+time))))))

; The verb group. An auxiliary has in `vform` the form that it wants: percolating it is the test. Then the
; group takes on the auxiliary's own form, and its person.
(defun agree-with-aux ()
  (and (pitem-attvec (undefine (agr)))
       (unify2 (pitem-attvec) (pitem-modifier (pitem-attvec)) (agr))))

; the plan, however, failed: the first comma becomes part of the group, so that the subject is next to it.
(defun between-commas ()
  (if (and (pitem-modifier (pitem-following-word (str= ","))) (pitem-preceding-word (str= ",")))
      (include-preceding-word)
      (t)))

(defun within-commas ()
  (and (pitem-modifier (pitem-following-word (str= ","))) (pitem-preceding-word (str= ",")) (include-preceding-word)))

(def-modifiers VG
  (* :skip-word (str= ",")
     (Aux (dep-type aux) (modifier-cond (pitem-attvec (contain ((own fin))))) (percolate (vform))
          (merged-cond (and (pitem-attvec (modify ((vform fin)))) (agree-with-aux))))
     (Aux (dep-type aux) (modifier-cond (pitem-attvec (contain ((own base))))) (percolate (vform))
          (merged-cond (and (pitem-attvec (modify ((vform base)))) (agree-with-aux))))
     (Aux (dep-type aux) (modifier-cond (pitem-attvec (contain ((own en))))) (percolate (vform))
          (merged-cond (and (pitem-attvec (modify ((vform en)))) (agree-with-aux))))
     (Aux (dep-type aux) (modifier-cond (pitem-attvec (contain ((own ing))))) (percolate (vform))
          (merged-cond (and (pitem-attvec (modify ((vform ing)))) (agree-with-aux))))
     (Aux (dep-type aux) (modifier-cond (pitem-attvec (contain ((own inf))))) (percolate (vform))
          (merged-cond (and (pitem-attvec (modify ((vform inf)))) (agree-with-aux) (pitem-add-weight -1))))
     (Neg (dep-type neg))
     ; the plan, if it fails, ...
     (SubC (dep-type sub) (percolate ()) (dep-weight 2) (merged-cond (within-commas)))
     ; she is, I think, ill
     (Rep (dep-type parataxis) (percolate ()) (dep-weight 1) (merged-cond (within-commas)))
     (Intj (dep-type discourse) (percolate ()))
     (Adv (dep-type mod) (percolate ()) (modifier-cond (pitem-attvec (not (contain (+front)))))
          (merged-cond (between-commas))))
  (:head (VP)
         ; if he could, so he did: the auxiliary alone
         (Aux (head-cond (and (pitem-followed-by-or-end-with-word (in ("." ".." "..." "," "?" "!" ";" ":" ")" "n't"
                 "'t" nt not and but or either too so than)))
                              (or (and (pitem-attvec (contain ((own fin)))) (pitem-attvec (modify ((vform fin)))))
                                  (and (pitem-attvec (contain ((own base)))) (pitem-attvec (modify ((vform base)))))
                                  (and (pitem-attvec (contain ((own en)))) (pitem-attvec (modify ((vform en)))))
                                  (and (pitem-attvec (contain ((own inf)))) (pitem-attvec (modify ((vform inf))))))
                              (pitem-add-weight 5)))))
  ; ... but they did not
  (* (Neg (dep-type neg) (modifiee-cond (pitem-attvec (defined (own)))))
     (Adv (dep-type mod) (percolate ()) (modifiee-cond (pitem-attvec (defined (own)))))))

; The verb group that a subject can have. Here `is ready` and `reads` are of one form, so that they can be joined.
(def-modifiers VF
  (:head (VG (head-cond (and (finite) (pitem-attvec (modify ((vform fin)))))))))
