(def-socket-tokenizer :name s " \n" "" "" "" "" "")
(test-tokenizer s in.txt)
(test-tokenizer s)
(test-tokenizer s)
