; Noun phrases: adjectives and genitives stand on both sides of the noun.

(defun genitive () (pitem-attvec (strict-unifiable (case) ((case gen)))))
(defun between-commas ()
  (and (pitem-preceding-word (str= ",")) (pitem-followed-by-or-end-with-word (in ("," "." "?" "!")))))

(def-modifiers A (:head))
(def-modifiers N
  (* (A (dep-type amod) (percolate (case num gender)))
     (N (dep-type nmod) (percolate ()) (modifier-cond (genitive)) (dep-weight 2.5)))
  (:head (NN) (Pro))
  (* (A (dep-type amod) (percolate (case num gender)))
     (N (dep-type nmod) (percolate ()) (modifier-cond (genitive))))
  ; A relative pronoun has the gender and number of its noun: both percolate.
  (? :skip-word (str= ",")
     (Rel (dep-type acl) (percolate (num gender)) (modifier-cond (between-commas))
          (merged-cond (include-following-word (str= ","))))))

; Two are many, whatever each of them is.
(def-conj-constraints N (merged-cond (pitem-attvec (modify ((num pl))))))

; A preposition depends on its noun and percolates the cases that it governs.
(def-modifiers PP ((P (dep-type case) (percolate (case)))) (:head (N)))
