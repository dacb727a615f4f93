; Rules are kept in order; more come behind. What is no rule is passed over.
(load base.lsp)
(def-tree-rules more (root (say "one ")))
(def-tree-rules MORE (Up (any) (say-node)) (sideways (any) (say-node)) atom () ((up) (any) (say-node)) (root (say "two ")))
(echo "-- two lists, an empty list, an emptied list, and rules behind it")
(run more)
(def-tree-rules empty) (run empty)
(clear-tree-rules more) (run more)
(def-tree-rules more (root (say "three ")))
(run more)
(clear-tree-rules nobody) (clear-tree-rules) (def-tree-rules)
; Names and comments come before the pattern. A root rule takes none.
(def-tree-rules named
  (up shallow :name first :comments "says the leaves" (node (not (exist-child))) (say-node))
  (down :comments "says (the) \"top\"" :name second (node (is A)) (say-node))
  (root :name third (say-node)))
(echo -- names and comments) (run named)
; A condition that makes no match never fires; one that does may be of any form.
(def-tree-rules odd-conditions
  (up (cat) (say-node)) (up (t) (say-node)) (down (exist-child (t)) (say-node)) (up) (up (any)) (flat)
  (root (say "or: ")) (up (or (node (is B)) (node (is G))) (say-node)))
(echo -- odd conditions) (run odd-conditions)
; A name that means something else, or stands already as something else.
(make-lexicon tok 11)
(def-tree-rules tok (root (say "none ")))
(clear-tree-rules tok)
(eval (read-and-modify-deps nobody))
