; Tokenizers that are not whole, of a name that is taken, and commands that take no tokenizer.
(def-tokenizer :name list (" ") "" "" "" "" "")
(def-socket-tokenizer :name few " " "") (def-tokenizer "" "" "" "" "" "")
(def-tokenizer " " :NAME one "" "" "" "" "")
(def-tokenizer :name STRCMP "," "" "" "" "" "") (def-socket-tokenizer :name one "a" "" "" "" "" "")
(test-tokenizer list) (test-tokenizer strcmp) (test-tokenizer one missing.txt)
(test-tokenizer one in.txt more)
(test-tokenizer (one) in.txt)
(double-byte (x)) (double-byte :tokenizer nosuch 1) (double-byte :tokenizer one)
