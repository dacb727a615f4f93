; Commands of the shell.
(echo before)
(system "echo from the shell")
(system)
(system (echo never))
(system "exit 3")
(echo after)
