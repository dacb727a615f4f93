; Writes what depends on what, one row for each dependency, ready for counting. Load this behind the
; grammar, and switch it on:
;
;   (load english/triples.lsp)
;   (set-deps-modifier english-parser triples)
;
; A row has three fields with tabs between them: the relation, the root form of the head, the root form of
; the modifier. For "the dogs sleep" these are
;
;   subj	sleep	dog
;   det	dog	the
;
; so that (head, relation, modifier) are columns 2, 1, 3. Nothing is written for the top of a tree, for an
; empty place, and for the parts of a word that the lexicon writes apart ("in spite of" is one word).
;
; The rows go to the stream in `triples-stream`; without one, to standard output.
;
;   (eval (setq triples-stream (comp (str "rows.txt") (open-file :write))))
;
; For rows in the content-head style, where prepositions do not stand between a verb and its nouns, load
; content-head.lsp too, and end its list with the rule:
;
;   (def-tree-rules content-head (down (node (is-dependency)) (write-triple)))

(declare-var triples-stream)

(defun has-words () (node2minp (reg-match ".")))
(defun is-dependency () (and (has-words) (comp (parent) (has-words)) (not (rel (str= lex-mod)))))
(defun write-triple () (match (print-rel (nil) (get-val triples-stream))))

(def-tree-rules triples
  (down :name triple
        :comments "A row for every word that depends on another one."
        (node (is-dependency))
        (write-triple)))

; The parser asks a database for relations with categories at both ends, V:obj:N, and for a prepositional
; phrase by its preposition, V:with:N. These rules give each relation that name before they write the row:
; what they count can be attached with set-reldb.
(defun is-preposition () (cat (reg-match "^P$" "^P_")))

(def-tree-rules parser-triples
  (down :name prepositional-key
        :comments "eat with a fork: eat, V:with:N, with."
        (node (and (is-preposition) (dep-name)))
        (set-rel (match) (match (format (comp (dep-name) (reg-sub ":.*$" "")) ":" (node2root) ":N"))))
  (down :name key
        :comments "A pronoun stands where a noun phrase does."
        (node (and (not (is-preposition)) (dep-name)))
        (set-rel (match) (match (comp (dep-name) (reg-sub ":Pro$" ":N")))))
  (down :name triple
        :comments "A row for every word that depends on another one, where both have categories."
        (node (and (is-dependency) (rel (reg-match "^[A-Za-z0-9]+:[^:]+:[A-Z]"))))
        (write-triple)))
