; Escapes in quotes and in comments, and zero bytes.
(def-tokenizer :name t " \n" "()" "," "\" '" "\\" "#")
(test-tokenizer t in.txt)
(def-tokenizer :name bare " " "" "" "\"" "" "")
(test-tokenizer bare bare.txt)
