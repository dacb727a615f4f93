; Noun phrases. Determiner, adjectives and noun agree, since each hands `agr` to the noun. Adjectives also agree in
; `decl` with the determiner: der alte Mann, ein alter Mann.

(def-modifiers A (* (Deg (dep-type advmod))) (:head))
(def-modifiers Pred (* (Deg (dep-type advmod))) (:head))
(def-modifiers NB (* (A (dep-type amod) (percolate (agr decl)))) (:head (NN)))
(def-modifiers N0 (? (Det (dep-type det) (percolate (agr decl spec)))) (:head (NB) (Pro)))

; Without a determiner an adjective is strong (kaltes Wasser); a singular rather wants one.
(defun determined ()
  (cond ((pitem-attvec (contain (+spec))) (t))
        ((pitem-attvec (unify ((decl strong))))
         (if (pitem-attvec (unifiable ((agr pn pa pd pg)))) (t) (pitem-add-weight 2)))))

; Between commas: the one behind becomes part of the phrase.
(defun between-commas ()
  (and (pitem-preceding-word (str= ",")) (pitem-followed-by-or-end-with-word (in ("," "." "?" "!")))))

; A relative pronoun has the gender and number of its noun, not its case.
(defun same-gender ()
  (or (and (pitem-modifier (pitem-attvec (unifiable ((ante m))))) (pitem-attvec (unify ((agr mn ma md mg)))))
      (and (pitem-modifier (pitem-attvec (unifiable ((ante f))))) (pitem-attvec (unify ((agr fn fa fd fg)))))
      (and (pitem-modifier (pitem-attvec (unifiable ((ante n))))) (pitem-attvec (unify ((agr nn na nd ng)))))
      (and (pitem-modifier (pitem-attvec (unifiable ((ante p))))) (pitem-attvec (unify ((agr pn pa pd pg)))))))

; The price of a place behind a noun: er liest das Buch in der Schule.
(defun rather-to-the-verb ()
  (if (pitem-modifier (pitem-attvec (contain (+verbal)))) (pitem-add-weight 1) (t)))

(def-modifiers N
  (:head (N0 (head-cond (determined))))
  (* (N (dep-type nmod) (percolate ()) (modifier-cond (pitem-attvec (strict-unifiable (agr) (genitive)))))
     (PP (dep-type nmod) (percolate ()) (dep-weight 1.5) (merged-cond (rather-to-the-verb))))
  (? :skip-word (str= ",")
     (Rel (dep-type acl) (percolate ()) (modifier-cond (between-commas))
          (merged-cond (and (same-gender) (include-following-word (str= ",")))))))

; A preposition depends on its noun and percolates `agr`, the cases that it governs.
(def-modifiers PP ((P (dep-type case) (percolate (agr verbal)))) (:head (N)))
