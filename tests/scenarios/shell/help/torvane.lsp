; The comments of commands whose names match.
(help "^(echo|exit|quote|ec|system.)$")
(echo -- others) (? "^nosuch") (HELP "^\\?" "more" )
