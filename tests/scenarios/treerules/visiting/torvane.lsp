; What each kind of rule visits, in which order, and what a shallow rule passes over.
(load base.lsp)
(defmacro say-node () (comp (match) (cat) (print-str :suffix " ")))

(def-tree-rules orders
  (root (say "up: ")) (up (any) (say-node))
  (root (say "down: ")) (down (any) (say-node))
  (root (say "root: ")) (root (comp (num-children) (int2str) (print-str))))
(run orders)

; A shallow rule skips only where its action gave something.
(def-tree-rules skips
  (root (say "down from C: ")) (down shallow (any) (prog (say-node) (comp (match) (is C))))
  (root (say "down from A: ")) (down shallow (node (is A)) (prog (say-node) (t)))
  (root (say "down, not shallow: ")) (down (any) (prog (say-node) (t)))
  (root (say "up from B: ")) (up shallow (any) (prog (say-node) (comp (match) (is B))))
  (root (say "up from D: ")) (up shallow (any) (prog (say-node) (comp (match) (is D))))
  (root (say "up from G: ")) (up shallow (any) (prog (say-node) (comp (match) (is G))))
  (root (say "nothing given: ")) (down shallow (any) (prog (say-node) (nil))))
(run skips)

; Rules are kept in order; more come behind. What is no rule is passed over.
(def-tree-rules more (root (say "one ")))
(def-tree-rules MORE (Up (any) (say-node)) (sideways (any) (say-node)) atom () ((up) (any) (say-node)) (root (say "two ")))
(run more)
(def-tree-rules empty)
(run empty)
(clear-tree-rules more)
(run more)
(def-tree-rules more (root (say "three ")))
(run more)
(clear-tree-rules nobody)
(clear-tree-rules)
(def-tree-rules)

; Names and comments come before the pattern. A root rule takes none.
(def-tree-rules named
  (up shallow :name first :comments "says the leaves" (node (not (exist-child))) (say-node))
  (down :comments "says (the) \"top\"" :name second (node (is A)) (say-node))
  (root :name third (say-node)))
(run named)

; A condition that makes no match never fires; one that does may be of any form.
(def-tree-rules odd-conditions
  (up (cat) (say-node)) (up (t) (say-node)) (down (exist-child (t)) (say-node)) (up) (up (any)) (flat)
  (root (say "or: ")) (up (or (node (is B)) (node (is G))) (say-node)))
(run odd-conditions)

; A name that means something else, or stands already as something else.
(make-lexicon tok 11)
(def-tree-rules tok (root (say "none ")))
(clear-tree-rules tok)
(eval (read-and-modify-deps nobody))

; A variable is the rule's own: another rule does not see it.
(declare-var v char*)
(def-tree-rules scopes
  (up (node v (is B)) (comp (get-val v) (cat) (print-str :suffix " ")))
  (up (tree v (is C) (node w (is D)))
      (prog (comp (get-val v) (cat) (print-str)) (comp (get-val w) (cat) (print-str :suffix " "))))
  (up (tree v (is C) (node v (t))) (comp (get-val v) (cat) (print-str :suffix " ")))
  (up (node (is A)) (comp (get-val w) (print-str)))
  (up (node x (is A)) (let (x) (prog (setq x (str inner)) (comp (get-val x) (print-str :suffix " "))))))
(run scopes)

; Flat rules: conditions that must all find a node, anywhere in the tree, in post-order: B D C E G F A.
(defmacro say2 () (prog (child 1) (child 2) (comp (str " ") (print-str))))

(over "both" (flat ((n C) (n B)) (say2)))
(over "one missing" (flat ((n B) (n X)) (say2)))
(over "optional behind" (flat ((n C) ? (n G)) (say2)))
(over "optional before" (flat (? (n B) (n E)) (say2)))
(over "all optional" (flat (? (n B) ? (n E)) (say2)))
(over "first stays" (flat ((any) (n E)) (say2)))
(over "last wins" (flat (:max (any) (n E)) (say2)))
(over "last and optional" (flat (? :max (any) (n E)) (say2)))
(over "optional and last" (flat (:max ? (any) (n E)) (say2)))
(over "starts anew" (flat ((any) (any)) (say2)))
(over "pairs" (flat ((any) (n X) (any)) (say2)))
(over "shallow stops" (flat shallow ((any)) (prog (child 1) (match 1))))
(over "shallow goes on" (flat shallow ((any)) (prog (child 1) (nil))))
(over "markers behind" (flat ((n B) ? :max) (child 1)))
(over "nothing" (flat () (say2)))
(over "no list" (flat any (say2)))
(over "no form" (flat (word (n B)) (say2)))
(over "no pattern" (flat ((cat)) (say2)))
(over "no pattern needed" (flat (? (cat) (n B)) (say2)))
; The match of all stands for no node; it is no place to detach from, and no conditions make it longer.
(over "whole" (flat ((n B) (n C))
  (prog (comp (match) (is-nil) (int2str) (print-str))
        (comp (detach-node (match 2)) (cat) (print-str)) (comp (match 3) (is-nil) (int2str) (print-str)) (comp (match 2 1) (is-nil) (int2str) (print-str)))))
(over "three" (flat :name three ((n B) :max (any) ? (n X)) (prog (child 1) (child 2) (child 3))))
(def-tree-rules many (flat (
  (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any)
  (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (n G)
  (n X) :max ? (n X)) (prog (child 1) (child 31) (child 32) (child 33))))
(run many)
(exit)
