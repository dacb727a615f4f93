; What each kind of rule visits, in which order, and what a shallow rule passes over.
(load base.lsp)
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
