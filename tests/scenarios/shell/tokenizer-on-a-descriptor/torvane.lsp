; A tokenizer of sockets reads the standard input, whatever file is named.
(def-socket-tokenizer :name s " \n" "" "" "" "" "")
(test-tokenizer s in.txt)
(test-tokenizer s)
(test-tokenizer s)
