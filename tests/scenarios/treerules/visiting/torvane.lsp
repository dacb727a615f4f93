; What each kind of rule visits, in which order, and what a shallow rule passes over.
(defmacro run (name) (eval (prog (read-and-modify-deps name (comp (str tree.txt) (open-file)))
                                 (comp (str "") (print-str :suffix "\n")))))
(defmacro is (letter) (comp (cat) (str= letter)))
(defmacro any () (node (cat)))
(defmacro say () (comp (match) (cat) (print-str :suffix " ")))

(def-tree-rules orders
  (root (comp (str "up:") (print-str :suffix " "))) (up (any) (say))
  (root (comp (str "down:") (print-str :suffix " "))) (down (any) (say))
  (root (comp (str "root:") (print-str :suffix " "))) (root (comp (num-children) (int2str) (print-str))))
(run orders)

; A shallow rule skips only where its action gave something.
(def-tree-rules skips
  (root (comp (str "down from C:") (print-str :suffix " "))) (down shallow (any) (prog (say) (comp (match) (is C))))
  (root (comp (str "down from A:") (print-str :suffix " "))) (down shallow (node (is A)) (prog (say) (t)))
  (root (comp (str "down, not shallow:") (print-str :suffix " "))) (down (any) (prog (say) (t)))
  (root (comp (str "up from B:") (print-str :suffix " "))) (up shallow (any) (prog (say) (comp (match) (is B))))
  (root (comp (str "up from D:") (print-str :suffix " "))) (up shallow (any) (prog (say) (comp (match) (is D))))
  (root (comp (str "up from G:") (print-str :suffix " "))) (up shallow (any) (prog (say) (comp (match) (is G))))
  (root (comp (str "nothing given:") (print-str :suffix " "))) (down shallow (any) (prog (say) (nil))))
(run skips)

; Rules are kept in order; more come behind. What is no rule is passed over.
(def-tree-rules more (root (comp (str one) (print-str :suffix " "))))
(def-tree-rules MORE (Up (any) (say)) (sideways (any) (say)) atom () ((up) (any) (say)) (root (comp (str two) (print-str :suffix " "))))
(run more)
(def-tree-rules empty)
(run empty)
(clear-tree-rules more)
(run more)
(def-tree-rules more (root (comp (str three) (print-str :suffix " "))))
(run more)
(clear-tree-rules nobody)
(clear-tree-rules)
(def-tree-rules)

; Names and comments come before the pattern. A root rule takes none.
(def-tree-rules named
  (up shallow :name first :comments "says the leaves" (node (not (exist-child))) (say))
  (down :comments "says (the) \"top\"" :name second (node (is A)) (say))
  (root :name third (say)))
(run named)

; A condition that makes no match never fires; one that does may be of any form.
(def-tree-rules odd-conditions
  (up (cat) (say)) (up (t) (say)) (down (exist-child (t)) (say)) (up) (up (any)) (flat)
  (root (comp (str or:) (print-str :suffix " "))) (up (or (node (is B)) (node (is G))) (say)))
(run odd-conditions)

; A name that means something else, or stands already as something else.
(make-lexicon tok 11)
(def-tree-rules tok (root (comp (str none) (print-str :suffix " "))))
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
(defmacro flat-run (name rule) (def-tree-rules name rule)
  (eval (comp (str name) (print-str :suffix ": ")))
  (run name))
(defmacro n (letter) (node (is letter)))
(defmacro child (n) (if (match n) (comp (match n) (cat) (print-str)) (comp (str "-") (print-str))))
(defmacro say2 () (prog (child 1) (child 2) (comp (str " ") (print-str))))

(flat-run "both" (flat ((n C) (n B)) (say2)))
(flat-run "one missing" (flat ((n B) (n X)) (say2)))
(flat-run "optional behind" (flat ((n C) ? (n G)) (say2)))
(flat-run "optional before" (flat (? (n B) (n E)) (say2)))
(flat-run "all optional" (flat (? (n B) ? (n E)) (say2)))
(flat-run "first stays" (flat ((any) (n E)) (say2)))
(flat-run "last wins" (flat (:max (any) (n E)) (say2)))
(flat-run "last and optional" (flat (? :max (any) (n E)) (say2)))
(flat-run "optional and last" (flat (:max ? (any) (n E)) (say2)))
(flat-run "starts anew" (flat ((any) (any)) (say2)))
(flat-run "pairs" (flat ((any) (n X) (any)) (say2)))
(flat-run "shallow stops" (flat shallow ((any)) (prog (child 1) (match 1))))
(flat-run "shallow goes on" (flat shallow ((any)) (prog (child 1) (nil))))
(flat-run "markers behind" (flat ((n B) ? :max) (child 1)))
(flat-run "nothing" (flat () (say2)))
(flat-run "no list" (flat any (say2)))
(flat-run "no form" (flat (word (n B)) (say2)))
(flat-run "no pattern" (flat ((cat)) (say2)))
(flat-run "no pattern needed" (flat (? (cat) (n B)) (say2)))
; The match of all stands for no node; it is no place to detach from, and no conditions make it longer.
(flat-run "whole" (flat ((n B) (n C))
  (prog (comp (match) (is-nil) (int2str) (print-str))
        (comp (detach-node (match 2)) (cat) (print-str)) (comp (match 3) (is-nil) (int2str) (print-str)) (comp (match 2 1) (is-nil) (int2str) (print-str)))))
(flat-run "three" (flat :name three ((n B) :max (any) ? (n X)) (prog (child 1) (child 2) (child 3))))
(def-tree-rules many (flat (
  (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any)
  (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (any) (n G)
  (n X) :max ? (n X)) (prog (child 1) (child 31) (child 32) (child 33))))
(eval (read-and-modify-deps many (comp (str tree.txt) (open-file))))
(exit)
