; The condition of an ending asks for the root of its own candidate, and so on without end.
(load base.lsp)
(make-lexicon L 101 :ending-table
  ((:conditions ((again) (exec-commands (foreach (dogs) :eval (get-root L (ident)))
                                        (foreach (dogs) :eval (get-root L (ident))))))
   (p s pl s again) (p "" base)))
(lex L (dogs (g a)))
(foreach (dogs) :eval (comp (get-root L) (print-str :suffix "\n")))
