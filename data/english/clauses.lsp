; Clauses.

(defun finite-be () (pitem-attvec (and (contain ((own fin))) (strict-unifiable (vform) ((vform prd))))))
(defun mark () (pitem-attvec (modify (+marked))))

; Set off from what follows: To win, tired of it, having left, ...
(defun before-comma () (pitem-following-word (str= ",")))

; Tom, ...
(defun called ()
  (and (pitem-attvec (contain (+proper))) (pitem-following-word (str= ","))))

; What stands before the subject stands at the start of its clause: behind a sign, a conjunction, what introduces a
; clause.
(defun clause-start ()
  (or (not (int-gt (pitem-low) (int 2)))
      (pitem-preceding-word (reg-match "^[0-9a-z][0-9]*[.)]$"))
      (pitem-preceding-word
        (in ("," ";" ":" "-" "--" "..." ".." "(" "." "!" "?" "*" ">" ")" "]" "[" "&"
                "'" and but or so yet nor plus then that if
             because bc cause cos cuz since when while whereas although though until unless whether as after before
             once where
             why how what who which than said say says think thinks thought know knows knew believe believes hope guess
             feel felt wish sure okay ok yes no well oh hi hello hey lol please also however therefore thus now today
             yesterday again)))))

; ..., folks.
(defun called-last ()
  (and (pitem-preceding-word (str= ","))
       (pitem-attvec (comp (att-str-val lexitem) (in
               (folk guy man sir madam dear friend dude buddy everyone all people boy girl lady
                                                      gentleman mate honey baby))))))

; she reads
(def-modifiers S
  (* :skip-word (str= ",")
     (N (dep-type voc) (percolate ()) (dep-weight 5) (modifier-cond (called)))
     (Conn (dep-type conn) (modifier-cond (not (int-gt (pitem-low) (int 3)))))
     (P (dep-type mod) (percolate ()) (dep-weight 1.2) (modifier-cond (and (clause-start) (no-gap))))
     (Adv (dep-type mod) (percolate ()) (modifier-cond (not (wh))))
     (Intj (dep-type discourse) (percolate ()) (dep-weight 0.8))
     (N (dep-type time) (percolate ()) (dep-weight 1.5) (modifier-cond (and (pitem-attvec (contain (+time)))
             (clause-start))))
     (SubC (dep-type sub) (modifier-cond (clause-start)))
     (Abs (dep-type sub) (percolate ()) (dep-weight 3) (modifier-cond (and (before-comma) (clause-start))))
     (Q (dep-type sub) (percolate ()) (dep-weight 3) (modifier-cond (and (before-comma) (clause-start) (no-gap))))
     (I (dep-type purpose) (percolate (cm)) (dep-weight 2) (modifier-cond (and (before-comma) (clause-start) (no-gap))))
     (A (dep-type mod) (percolate ()) (dep-weight 3) (modifier-cond (and (before-comma) (clause-start))))
     (VG (dep-type sub) (percolate ()) (dep-weight 2) (modifier-cond (and (before-comma) (clause-start)
             (participial)))))
  ((N (dep-type subj) (percolate (agr wh)) (modifier-cond (and (nominative) (no-gap))))
   (I (dep-type subj) (percolate (cm)) (dep-weight 2) (modifier-cond (no-gap)))
   (C (dep-type subj) (percolate ()) (dep-weight 9) (modifier-cond (and (marked) (no-gap))))
   (Adv (dep-type pred) (percolate (wh)) (dep-weight 2)
        (modifier-cond (pitem-attvec (and (contain (+wh)) (contain (+loc))))))
   (A (dep-type pred) (percolate (wh)) (dep-weight 2) (modifier-cond (wh))))
  (:head (VF))
  ; "I am tired," he said. "So am I," said she. That is right, folks.
  (? :skip-word (in ("," ":" "!"))
     (Rep (dep-type report) (dep-weight 2))
     (Gap (dep-type conj) (percolate ()) (dep-weight 0))
     (Tag (dep-type parataxis) (percolate ()) (dep-weight 0.5))
     (N (dep-type voc) (percolate ()) (dep-weight 0.5) (modifier-cond (called-last)))
     (S (dep-type report) (percolate ()) (dep-weight 3)
        (modifier-cond (and (no-gap) (pitem-preceding-word (in ("," ":"))))))))

; the more she reads, the more she knows; the bigger the house, the higher the price
(defun comparative ()
  (or (pitem-head-word (reg-match "[a-z]er$" "^(more|less|worse|further)$"))
      (get-modifier-by-type mod (pitem-head-word (in (more less))))))
(def-modifiers Cmp
  ((Det (dep-type det) (percolate ()) (modifier-cond (pitem-head-word (str= the)))))
  (:head (A (percolate ()) (modifier-cond (comparative)))
         (Adv (percolate ()) (modifier-cond (comparative)))
         (Det (percolate ()) (modifier-cond (comparative)))))
(def-modifiers CmpS
  ((Cmp (dep-type advmod)))
  (:head (S (percolate ()))))
(def-modifiers CmpP
  (:head (Cmp))
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (nominative) (no-gap)))))
  (? (Aux (dep-type aux) (percolate ()) (modifier-cond (finite-be)))))
(def-subclass CmpS (CmpP))
(def-modifiers Corr
  (:skip-word (str= ",") (CmpS (dep-type sub)))
  (:head (CmpS)))
(def-subclass S (Corr))

; Tom ordered tea and Anna a cake: the second clause has lost its verb, its first phrase stands for it.
(def-modifiers Gap
  ((Conn (dep-type conn)))
  (:head (N (percolate ()) (modifier-cond (and (nominative) (no-gap) (pitem-attvec (contain (+proper) (+spec)))))))
  ((N (dep-type orphan) (percolate ())
     (modifier-cond (and (no-gap) (pitem-followed-by-or-end-with-word (in ("." "," ";" "!" "?" "-"))))))
   (P (dep-type orphan) (percolate ())
     (modifier-cond (and (no-gap) (pitem-followed-by-or-end-with-word (in ("." "," ";" "!" "?" "-"))))))))

; its ready, im going: subject and auxiliary that are written as one
(def-modifiers RunIn
  (* :skip-word (str= ",")
     (Conn (dep-type conn))
     (Adv (dep-type mod) (percolate ()))
     (Intj (dep-type discourse) (percolate ())))
  ((ItIs (dep-type subj) (percolate (vform))))
  (:head (VG (percolate (vform)) (head-cond (no-gap)))))
(def-subclass S (RunIn (dep-weight 2)))

; On the hill stood a house. Now comes the best part.
(def-modifiers Inv
  ((P (dep-type mod) (percolate ()) (modifier-cond (and (no-gap) (clause-start))))
   (Adv (dep-type mod) (percolate ()) (modifier-cond (pitem-head-word (in (here there now then first next))))))
  (:head (V (percolate ())
            (modifier-cond (pitem-head-word (in
                    (stood stands lay lies sat sits came comes come went goes hung hangs lived lives
                                                 began begins followed follows arose appeared appears rose))))
            (head-cond (and (finite) (no-gap)))))
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (no-gap) (not-pro))))))
(def-subclass S (Inv (dep-weight 1.5)))

; ..., didn't you
(def-modifiers Tag
  (:head (Aux (percolate ()) (modifier-cond (pitem-attvec (contain ((own fin)))))))
  (? (Neg (dep-type neg)))
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (nominative) (pitem-attvec (contain (+pro)))
                                                         (pitem-followed-by-or-end-with-word (in ("?" "." "!"))))))))

; said she, she said: only around what is said.
(def-modifiers Rep
  (? (N (dep-type subj) (percolate ()) (modifier-cond (nominative)) (merged-cond (mark))))
  (:head (VG (head-cond (and (finite)
                             (pitem-head-word (in (said says know think believe suppose guess asked asks replied replies
                                                   answered cried shouted whispered thought explained explains added
                                                   adds wrote writes commented told reported reports noted notes warned
                                                   warns declared announced remarked stated argued concluded continued
                                                   insisted admitted claimed suggested)))))))
  (? (N (dep-type subj) (percolate ()) (modifier-cond (nominative)) (modifiee-cond (not (marked)))))
  ; ..., without looking up
  (* :skip-word (str= ",")
     (PC (dep-type sub) (percolate ()))
     (SubC (dep-type sub) (percolate ()))
     (P (dep-type mod) (percolate ()) (modifier-cond (no-gap)))
     (Adv (dep-type mod) (percolate ()))
     (VG (dep-type sub) (percolate ()) (modifier-cond (and (set-off) (participial))))))

; does she read, what does she read
(def-modifiers Q
  (* :skip-word (str= ",")
     (N (dep-type voc) (percolate ()) (dep-weight 5) (modifier-cond (called)))
     (Conn (dep-type conn) (modifier-cond (not (int-gt (pitem-low) (int 3)))))
     (P (dep-type mod) (percolate ()) (modifier-cond (and (clause-start) (no-gap))))
     (Adv (dep-type mod) (percolate ()))
     (Intj (dep-type discourse) (percolate ()))
     (SubC (dep-type sub) (modifier-cond (clause-start))))
  (? (N (dep-type wh) (percolate (wh)) (check-slash np) (modifier-cond (wh)) (modifiee-cond (with-gap)))
     (Adv (dep-type wh) (percolate (wh)) (modifier-cond (wh)))
     (A (dep-type wh) (percolate (wh)) (modifier-cond (wh)))
     (P (dep-type wh) (percolate (wh)) (modifier-cond (and (wh) (no-gap)))))
  ((Aux (dep-type aux) (percolate (vform)) (modifier-cond (pitem-attvec (contain ((own fin)))))))
  (? (Neg (dep-type neg)))
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (nominative) (no-gap)))))
  (:head (VG (modifier-cond (pitem-attvec (strict-unifiable (vform) ((vform base en ing pass prd)))))))
  (? :skip-word (in ("?")) (Rep (dep-type report) (dep-weight 2))))

; Who is she, where are the books, how much is it; here is the book: the predicate stands in front.
(defun fronted-place () (and (pitem-attvec (contain (+loc))) (pitem-head-word (in (here)))))

(def-modifiers QP
  (* :skip-word (str= ",")
     (Conn (dep-type conn) (modifier-cond (not (int-gt (pitem-low) (int 3)))))
     (Intj (dep-type discourse) (percolate ()))
     (Adv (dep-type mod) (percolate ()) (dep-weight 2)))
  (:head (N (head-cond (and (wh) (pitem-add-weight -2))))
         (A (head-cond (wh)))
         (Adv (head-cond (or (wh) (fronted-place))))
         (P (percolate ()) (head-cond (and (not (int-gt (pitem-low) (int 2))) (no-gap) (pitem-add-weight 1.5))))
         (V (head-cond (and (not (int-gt (pitem-low) (int 2))) (pitem-attvec (contain ((vform pass))))))))
  ((Aux (dep-type aux) (percolate ()) (modifier-cond (finite-be))))
  (? (Neg (dep-type neg)))
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (nominative) (no-gap)))))
  (* :skip-word (str= ",")
     (P (dep-type mod) (percolate ()) (dep-weight 1.5) (modifier-cond (no-gap)))
     (Adv (dep-type mod) (percolate ()))
     (SubC (dep-type sub) (percolate ()))
     (I (dep-type purpose) (percolate (cm)) (dep-weight 2) (modifier-cond (no-gap)))))

; how about tea, what about him
(def-modifiers HowAbout
  (:head (Adv (percolate ()) (modifier-cond (pitem-head-word (str= how))))
         (N (percolate ()) (modifier-cond (pitem-head-word (str= what)))))
  ((P (dep-type mod) (percolate ()) (modifier-cond (and (no-gap) (pitem-attvec (contain ((pform about)))))))))
(def-subclass QP (HowAbout))

; ... what it is, how big they are.
(def-modifiers CP
  (:head (N (head-cond (and (wh) (mark))))
         (A (head-cond (and (wh) (mark))))
         (Adv (head-cond (and (wh) (mark)))))
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (nominative) (no-gap)))))
  ((Aux (dep-type aux) (percolate ()) (modifier-cond (finite-be))))
  (* (Neg (dep-type neg))
     (P (dep-type mod) (percolate ()) (dep-weight 1.5) (modifier-cond (no-gap)))
     (Adv (dep-type mod) (percolate ()))))

; A command begins its clause, but for what may stand before it.
(defun imperative-start ()
  (or (clause-start)
      (pitem-preceding-word (in (not "n't" "'t" nt do just only never always first next ps attached enclosed)))
      (pitem-preceding-word (reg-match "ly$"))))

; read!
(def-modifiers Imp
  (* :skip-word (str= ",")
     (N (dep-type voc) (percolate ()) (dep-weight 5) (modifier-cond (called)))
     (Conn (dep-type conn) (modifier-cond (not (int-gt (pitem-low) (int 3)))))
     (P (dep-type mod) (percolate ()) (modifier-cond (and (clause-start) (no-gap))))
     (Adv (dep-type mod) (percolate ()))
     (Intj (dep-type discourse) (percolate ()))
     (V (dep-type sub) (percolate ()) (modifier-cond (and (pitem-head-word (in (attached enclosed))) (no-gap))))
     (I (dep-type purpose) (percolate (cm)) (dep-weight 2) (modifier-cond (and (before-comma) (clause-start) (no-gap))))
     (SubC (dep-type sub) (modifier-cond (clause-start))))
  (? (Aux (dep-type aux) (percolate ())
          (modifier-cond (pitem-attvec (contain ((own fin) (vform base) (agr s2)))))))
  (? (Neg (dep-type neg)))
  (:head (VG (head-cond (and (imperative-start) (pitem-attvec (unify ((vform base))))))))
  (? :skip-word (in ("," "!")) (Rep (dep-type report) (dep-weight 2))))

; to read, for her to read; want there to be peace: a subject without `for` has case from the verb before it only.
(def-modifiers I
  (? (N (dep-type subj) (percolate ()) (dep-weight 1.5)
        (modifier-cond (and (no-gap) (pitem-head-word (in (there it)))))
        (merged-cond (pitem-attvec (modify (-cm)))))
     (P (dep-type subj) (percolate ()) (dep-weight 0.2)
        (modifier-cond (and (no-gap) (pitem-attvec (contain ((pform for))))))))
  (:head (VG (head-cond (pitem-attvec (strict-unifiable (vform) ((vform inf))))))))

; how to read, what to read
(def-modifiers WhI
  ((N (dep-type wh) (percolate ()) (check-slash np) (modifier-cond (wh)) (modifiee-cond (with-gap))
     (merged-cond (mark)))
   (Adv (dep-type wh) (percolate ()) (modifier-cond (wh)) (merged-cond (mark)))
   (Comp (dep-type mark) (merged-cond (mark))))
  (:head (I)))

; that she reads, where she reads, what she reads
(def-modifiers C
  (? (Comp (dep-type mark) (merged-cond (and (mark) (pitem-add-weight -0.5))))
     (N (dep-type wh) (percolate ()) (check-slash np) (modifier-cond (wh)) (modifiee-cond (with-gap))
        (merged-cond (mark)))
     (Adv (dep-type wh) (percolate ()) (modifier-cond (wh)) (merged-cond (mark)))
     (A (dep-type wh) (percolate ()) (modifier-cond (wh)) (merged-cond (mark)))
     (P (dep-type wh) (percolate ()) (modifier-cond (and (wh) (no-gap))) (merged-cond (mark))))
  (:head (S)))
; they asked that he be there: a plain form behind `that`
(def-modifiers Subj
  ((Comp (dep-type mark) (modifier-cond (pitem-head-word (str= that)))))
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (nominative) (no-gap)))))
  (:head (VG (percolate ()) (head-cond (and (no-gap) (pitem-attvec (unify ((vform base)))) (mark))))))
(def-subclass C (WhI) (CP) (Subj (dep-weight 3)))

; when she reads, while reading
(def-modifiers SubC
  (? (Adv (dep-type mod) (percolate ()) (modifier-cond (pitem-attvec (contain (+deg))))))
  ((Sub (dep-type mark)))
  (:head (S (head-cond (no-gap)))
         (VG (head-cond (participial)))
         ; rather stay than go
         (VG (percolate ()) (modifier-cond (and (pitem-preceding-word (str= than)) (no-gap)))
             (head-cond (pitem-attvec (strict-unifiable (vform) ((vform base))))))
         (A (percolate ()) (head-cond (pitem-add-weight 2)))
         (P (percolate ()) (modifier-cond (no-gap)) (head-cond (pitem-add-weight 2)))))

; the work done, his eyes closed: a clause that lacks `be`, between commas or behind `with`.
(def-modifiers Abs
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (no-gap) (pitem-attvec (contain (+spec))) (nominative)))))
  (:head (VG (percolate ()) (head-cond (participial)))
         (A (percolate ()) (head-cond (pitem-add-weight 1)))))
(def-modifiers WithC
  ((With (dep-type mark) (percolate ())))
  ((N (dep-type subj) (percolate ()) (modifier-cond (and (no-gap) (pitem-attvec (contain (+spec)))))))
  (:head (VG (percolate ()) (head-cond (and (participial) (pitem-attvec (contain ((vform pass))))
                                         (pitem-add-weight 1))))
         (A (percolate ()))))
(def-subclass SubC (WithC (dep-weight 2.5)))

; about what she reads, on how to read
(def-modifiers PC
  ((PSub (dep-type mark) (percolate ())))
  (:head (C (percolate ()) (head-cond (and (marked) (no-gap))))))

; Relative clauses: who reads (the subject is missing) ...
(def-modifiers RelS
  ((RelPro (dep-type subj))
   (N (dep-type subj) (percolate ()) (modifier-cond (and (wh) (int-gt (pitem-length) (int 1))
                                                      (pitem-preceding-word (str= ",")))))
   (N (dep-type subj) (percolate ()) (modifier-cond (pitem-attvec (contain (+rel))))))
  (:head (VF)))

; ... (that) she reads __ ...
(def-modifiers RelO
  (? (RelPro (dep-type rel) (check-slash np) (merged-cond (and (mark) (pitem-add-weight -1))))
     (N (dep-type rel) (percolate ()) (check-slash np) (modifier-cond (pitem-attvec (contain (+rel))))
        (merged-cond (mark))))
  (:head (S (percolate (move)) (head-cond (and (with-gap) (pitem-add-weight 1))))))

; ... where she reads, in which she reads.
(def-modifiers RelA
  ((Adv (dep-type rel) (percolate ()) (modifier-cond (wh)))
   (P (dep-type rel) (percolate ()) (modifier-cond (and (wh) (no-gap)))))
  (:head (S (percolate ()) (head-cond (no-gap)))))

