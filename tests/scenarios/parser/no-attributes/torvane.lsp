; Without a type of attributes each one that the parser looks for is told.
(init-attributes)
