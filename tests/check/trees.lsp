(def-tree-rules subjects
  (up :name subject
      (node (rel (str= subj)))
      (set-rel (match) (str nsubj)))
  (down :name determiner
      (tree (t) (node (rel (str= det))))
      (set-rel (match 1) (str case))))
(set-deps-modifier parser subjects)
