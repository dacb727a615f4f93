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
