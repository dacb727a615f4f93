; Counts begin here: rules that print a row for every dependency of a tree. To switch them on:
;   (load english/triples.lsp)
;   (set-deps-modifier english-parser triples)
; A row is relation, head, modifier, separated by tabs. The relation is what the parser asks a database
; of triples for, HEAD-CATEGORY:RELATION:MODIFIER-CATEGORY; so the rules rename the relations of the tree.

(def-tree-rules triples
  ; A prepositional phrase is counted by its preposition: eat V:with:N with.
  (down :name prepositions :comments "the preposition is the relation"
    (node (and (parent) (dep-name) (comp (cat) (reg-match "^P_" "^P$"))))
    (set-rel (match) (match (format (comp (dep-name) (reg-sub ":.*$" "")) ":" (node2root) ":N"))))
  ; A pronoun stands where a noun phrase does.
  (down :name others :comments "categories stand on both sides of the relation"
    (node (and (parent) (dep-name) (not (comp (cat) (reg-match "^P_" "^P$")))))
    (set-rel (match) (match (comp (dep-name) (reg-sub ":Pro$" ":N")))))
  ; What has no category at one end is a part of a longer entry of the lexicon, not a dependency.
  (down :name rows :comments "one row a dependency"
    (node (comp (rel) (reg-match "^[A-Za-z0-9]+:[^:]+:[A-Z]")))
    (match (print-rel))))
