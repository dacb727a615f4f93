; An action that runs commands: rules that grow while they run, a file that is loaded, a lexicon that is
; emptied, a parser that is reset or asked for another sentence.
(load base.lsp)
(lex L (x (avm ((cat n)))) (y (avm ((cat n)))))
(def-rules R
  (grow (word (t)) (prog (comp (format "grow " (matching-word)) (show))
    (exec-commands (def-rules R (new x (say (str "new, at the end"))))
                   (insert-lex-rules R grow (before x (say (str "new, before"))))
                   (load more.lsp))))
  (empty (lexitem (t)) (prog (exec-commands (clear-lexicon L) (reset-parser) (p3 "not now")) (show-items)
                             (comp (litem) (show-root))))
  (later (lexitem (t)) (say (str "still there"))))
(sentence "rules grow:" "x y")
(debug-rules R)
(sentence "again:" "x")
