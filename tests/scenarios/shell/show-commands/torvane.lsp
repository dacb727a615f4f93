; Commands are shown on request before they run.
(show-commands 1)
(echo a (b "c d"))
atom
)
(quote ())
(show-commands 0)
(echo hidden)
(show-commands)
(show-commands yes)
(show-commands (1))
