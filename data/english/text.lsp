; What people write between two full stops and is more than one sentence: clauses with nothing but a comma or dash
; between them, a clause and a command, headings with what they announce, lists, remarks in brackets, notes. The first
; piece is the head; universal-tree.lsp lets a clause be the root. Only what begins the sentence is a first piece.

(defun breaks ()
  (reg-match "^[-,;:.!?()*><|/~=+_#'$[]+$" "^]+$" "^[:;=][-o']?[)(DPpO|/]$" "^<3$" "^[xX]D$"))
(defun opening () (not (int-gt (pitem-low) (int 2))))
(defun whole () (pitem-attvec (not (or (defined (move)) (contain ((vform prd)))))))

; A piece behind no sign is dear. For what follows it stands in place of the first: pieces may be far apart.
(defun joined ()
  (and (pitem-attvec (undefine (lexitem)))
       (unify2 (pitem-attvec) (pitem-modifier (pitem-attvec)) (lexitem))
       (if (pitem-modifier (pitem-preceding-word (breaks))) (t) (pitem-add-weight 25))))

; (whatever it is): a remark in brackets, which may stand behind a noun, a verb phrase or a piece.
(defun bracketed ()
  (and (pitem-preceding-word (str= "(")) (pitem-following-word (str= ")"))
       (include-preceding-word) (include-following-word (str= ")"))))
(def-modifiers Paren
  (:head (S (percolate ()) (head-cond (and (whole) (bracketed))))
         (Q (percolate ()) (head-cond (and (whole) (bracketed))))
         (Imp (percolate ()) (head-cond (and (bracketed) (pitem-add-weight 2))))
         (N (percolate ()) (head-cond (and (bracketed) (pitem-add-weight 2))))
         (VG (percolate ()) (head-cond (and (whole) (bracketed) (pitem-add-weight 3))))
         (A (percolate ()) (head-cond (and (bracketed) (pitem-add-weight 3))))
         (P (percolate ()) (head-cond (and (whole) (bracketed) (pitem-add-weight 2))))
         (I (percolate ()) (head-cond (and (whole) (bracketed) (pitem-add-weight 2))))
         (Adv (percolate ()) (head-cond (and (bracketed) (pitem-add-weight 3))))
         (SubC (percolate ()) (head-cond (and (bracketed) (pitem-add-weight 2))))))

; and we hope to see you, but why, or none at all: behind anything.
(def-modifiers Joined
  (:skip-word (str= ",") (Conn (dep-type conn)))
  (:head (S (percolate ()) (head-cond (whole)))
         (Q (percolate ()) (head-cond (whole)))
         (Imp (percolate ()) (head-cond (pitem-add-weight 3)))
         (N (percolate ()) (head-cond (pitem-add-weight 4)))
         (VG (percolate ()) (head-cond (and (whole) (pitem-add-weight 7))))
         (A (percolate ()) (head-cond (pitem-add-weight 5)))
         (P (percolate ()) (head-cond (and (whole) (pitem-add-weight 6))))
         (I (percolate ()) (head-cond (and (whole) (pitem-add-weight 6))))
         (Adv (percolate ()) (head-cond (pitem-add-weight 6)))))

(def-modifiers Text
  (:head (S (percolate ()) (head-cond (and (opening) (whole))))
         (Q (percolate ()) (head-cond (and (opening) (whole))))
         (QP (percolate ()) (head-cond (opening)))
         (Imp (percolate ()) (head-cond (and (opening) (pitem-add-weight 5))))
         (C (percolate ()) (head-cond (and (opening) (whole) (pitem-add-weight 6))))
         (I (percolate ()) (head-cond (and (opening) (whole) (pitem-add-weight 8))))
         (VG (percolate ()) (head-cond (and (opening) (whole) (pitem-add-weight 9))))
         (N (percolate ()) (head-cond (and (opening) (pitem-add-weight 3))))
         (A (percolate ()) (head-cond (and (opening) (pitem-add-weight 5))))
         (P (percolate ()) (head-cond (and (opening) (whole) (pitem-add-weight 8))))
         (Adv (percolate ()) (head-cond (and (opening) (pitem-add-weight 8))))
         (SubC (percolate ()) (head-cond (and (opening) (pitem-add-weight 14))))
         (Intj (percolate ()) (head-cond (and (opening) (pitem-add-weight 6)))))
  (* :skip-word (breaks)
     (S (dep-type parataxis) (percolate ()) (dep-weight 8) (modifier-cond (whole)) (merged-cond (joined)))
     (Q (dep-type parataxis) (percolate ()) (dep-weight 8) (modifier-cond (whole)) (merged-cond (joined)))
     (QP (dep-type parataxis) (percolate ()) (dep-weight 8) (merged-cond (joined)))
     (Imp (dep-type parataxis) (percolate ()) (dep-weight 11) (merged-cond (joined)))
     (C (dep-type parataxis) (percolate ()) (dep-weight 13) (modifier-cond (whole)) (merged-cond (joined)))
     (I (dep-type parataxis) (percolate ()) (dep-weight 14) (modifier-cond (whole)) (merged-cond (joined)))
     (VG (dep-type parataxis) (percolate ()) (dep-weight 15) (modifier-cond (whole)) (merged-cond (joined)))
     (N (dep-type parataxis) (percolate ()) (dep-weight 10) (merged-cond (joined)))
     (A (dep-type parataxis) (percolate ()) (dep-weight 13) (merged-cond (joined)))
     (P (dep-type parataxis) (percolate ()) (dep-weight 14) (modifier-cond (whole)) (merged-cond (joined)))
     (Adv (dep-type parataxis) (percolate ()) (dep-weight 14) (merged-cond (joined)))
     (SubC (dep-type parataxis) (percolate ()) (dep-weight 14) (merged-cond (joined)))
     (Intj (dep-type discourse) (percolate ()) (dep-weight 12) (merged-cond (joined)))
     (Paren (dep-type paren) (percolate ()) (dep-weight 6))
     (Joined (dep-type conj) (percolate ()) (dep-weight 4) (merged-cond (joined)))))
