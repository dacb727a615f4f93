; The condition of an ending asks for the root of its own candidate, and so on without end.
(load base.lsp)
(make-lexicon M 101 :ending-table
  ((:conditions ((again) (exec-commands (foreach (dogs) :eval (get-root M (ident)))
                                        (foreach (dogs) :eval (get-root M (ident))))))
   (p s pl s again) (p "" base)))
(lex M (dogs (g a)))
(foreach (dogs) :eval (comp (get-root M) (print-str :suffix "\n")))
