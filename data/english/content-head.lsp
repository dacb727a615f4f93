; Trees in the style in which content words are heads, and function words depend on the word they serve:
; for counting what goes with what, and for tools that expect such trees. The grammar already puts
; auxiliaries, clause markers and `be` under the word that carries the meaning; these rules do the rest and
; give such words relations of their own. Load this behind the grammar, and switch it on:
;
;   (load english/content-head.lsp)
;   (set-deps-modifier english-parser content-head)
;
; New relations: case (a preposition under its noun), mark (to; a preposition under a verb), cop (a form of
; `be` under its predicate), auxpass (the auxiliary of a passive), root (the top of the tree).

(define-attribute ante DepTreeValue)    ; lets an empty node tell for whom it stands

(defun is-prep () (cat (reg-match "^P$|^P_")))
(defun is-verb () (cat (reg-match "^V$|^V_")))
(defun is-passive () (and (is-verb) (node2attvec (contain ((vform pass))))))
(defun is-aux () (and (cat (str= Aux)) (rel (in (aux cop auxpass)))))
(defun is-be () (and (is-aux) (node2attvec (contain ((vform prd))))))
(defun is-conjunct () (rel (str= conj)))
(defun is-pcomp () (and (cat) (rel (str= pcomp))))

(def-tree-rules content-head

  (up :name gap
      :comments "What did she buy __: what was moved to the front takes the place that it left."
      (node gap (node2ante (rel (in (wh rel)))))
      (prog (set-rel (match (node2ante)) (match (rel)))
            (match (node2ante (reattach-node (parent (get-val gap)))))
            (detach-node (match))))

  (up :name empty-node
      :comments "The letter I received __: a place that stays without a word goes."
      (node (and (parent) (not (cat)) (not (rel (str= lex-mod))) (not (exist-child))))
      (detach-node (match)))

  (up :name joined-prepositions
      :comments "on and under the table: the noun goes to the first preposition, which keeps the second."
      (tree first (and (is-prep) (not (exist-child (is-pcomp))))
                  (tree (and (is-prep) (is-conjunct)) (node (is-pcomp))))
      (match 1 1 (reattach-node (get-val first))))

  (up :name preposition
      :comments "in the lake: the noun takes the place of its preposition, and what else hung on that."
      (tree prep (is-prep) (node noun (is-pcomp)))
      (prog (set-rel (match 1) (match (rel)))
            (invert-dep (match 1))
            (set-rel (match) (str case))
            (match (all-children (prog (if (not (or (is-prep) (rel (str= lex-mod))))
                                           (reattach-node (get-val noun)))
                                       (t))))))

  (up :name preposition-of-verb
      :comments "by leaving: a preposition before a verb marks a clause."
      (tree (is-verb) (node (and (is-prep) (rel (str= case)))))
      (set-rel (match 1) (str mark)))

  (up :name infinitive
      :comments "to win: `to` marks a clause."
      (node (and (is-aux) (node2attvec (contain ((own inf))))))
      (set-rel (match) (str mark)))

  (up :name copula
      :comments "is hot, is a city, is in Boston: `be` under what is no verb."
      (node (and (is-be) (not (comp (parent) (is-verb)))))
      (set-rel (match) (str cop)))

  (up :name auxiliary-of-copula
      :comments "is being silly: only the last one is the copula."
      (treeq (not (is-verb)) (node (rel (str= cop))) (node (rel (str= cop))))
      (set-rel (match 1) (str aux)))

  (up :name copula-of-clause
      :comments "The plan is to win, the problem is that she left: `be` before a marked clause."
      (treeq (is-verb) (node (is-be)) (node (rel (str= mark))))
      (set-rel (match 1) (str cop)))

  (up :name copula-of-finite-clause
      :comments "That is where he lives: `be` before what is no participle."
      (node (and (is-be) (rel (str= aux)) (comp (parent) (and (is-verb)
            (not (node2attvec (strict-unifiable (vform) ((vform ing pass en)))))))))
      (set-rel (match) (str cop)))

  (up :name passive
      :comments "was broken, has been broken, got broken."
      (node (and (is-aux) (rel (str= aux)) (node2attvec (contain ((vform pass)))) (comp (parent) (is-passive))))
      (set-rel (match) (str auxpass)))

  (up :name auxiliary-of-passive
      :comments "is being heated: only the last one is that of the passive."
      (treeq (is-passive) (node (rel (str= auxpass))) (node (rel (str= auxpass))))
      (set-rel (match 1) (str aux)))

  (up :name first-conjunct
      :comments "apples, pears and plums: every conjunct hangs on the first one."
      (path (node first (t)) (node (is-conjunct)) (node (is-conjunct)))
      (match 1 (all-children (prog (if (is-conjunct) (reattach-node (get-val first))) (t)))))

  (up :name top
      :comments "The top of a tree has a relation too."
      (node (and (cat) (not (comp (parent) (cat)))))
      (set-rel (match) (str root))))
