(set-att-itp-list T)
(alias new I (-a))
(echo in the command file)
