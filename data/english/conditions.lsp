; Conditions that several files use. A condition is an expression over a parse item, PItem*; these are
; functions without arguments, which see the item that the caller sees.

(defun not-pro () (pitem-attvec (not (contain (+pro)))))
(defun nominative () (pitem-attvec (unifiable ((case nom)))))
(defun wh () (pitem-attvec (contain (+wh))))
(defun marked () (pitem-attvec (contain (+marked))))
(defun opens () (in ("," "-" "--" "(" ":")))
(defun closes () (in ("," "-" "--" ")")))
(defun set-off () (pitem-preceding-word (opens)))
(defun closed-off ()
  (and (set-off)
       (pitem-followed-by-or-end-with-word
         (in ("," "-" "--" ")" "." "?" "!" ";" ":" "..." ".." "\"" and or but)))))

; Something is missing that stands elsewhere. A link that does not percolate `move` would lose it.
(defun with-gap () (pitem-attvec (defined (move))))
(defun no-gap () (pitem-attvec (not (defined (move)))))

; `unify` changes the item: an ambiguous form is narrowed to what it is used as.
(defun finite () (pitem-attvec (unify ((vform pres past fin)))))
(defun participial () (pitem-attvec (and (strict-unifiable (vform) ((vform ing pass))) (not (defined (move))))))
