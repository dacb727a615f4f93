; Base noun phrases, verb groups, and what stands by itself.
(load data/torvane.lsp) (load data/english/chunks.lsp)
(set-deps-modifier english-parser chunks)
; What is in a noun phrase, and what is not.
(p3 "All the king's very old horses slept.")
(p3 "A well-known actor saw John Smith and two or three friends of his.")
(p3 "The police found something new in the stolen car.")
(p3 "The man whose house we bought moved to Spain.") (p3 "The red and white flag fell.")
(p3 "I will call my sister tonight.")
; Verb groups, split by a subject, and with adverbs in them or beside them.
(p3 "Usually he often visits us quietly.") (p3 "Don't they have to be seen again?")
(p3 "The house, however, was not sold.") (p3 "The soup is being heated.")
; Predicates: the forms of `be` are a group of their own.
(p3 "He has not been tired.") (p3 "She has probably never been in Boston.")
(p3 "London is a large city, but she was being silly.") (p3 "The tree is ten meters tall.")
(p3 "The milk smells strange.")
; Clauses, and words that belong to nothing.
(p3 "\"I know that you came because of the rain,\" he said.")
(p3 "When did they, the boys and the girls, ask what to buy?")
(p3 "The woman who lives next door is friendly.") (p3 "The song that they sang was beautiful.")
(p3 "The house in which he lives is old.") (p3 "Which car did your father choose?")
(p3 "Anna sang, danced and laughed.") (p3 "He looked at and under the table.")
(p3 "Blah of and the.")
