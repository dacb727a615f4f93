; Quotes of several characters, and separators that end tokens.
(def-tokenizer :name q :long-quotes (("\"\"\"" "\"\"\"") ("/*" "*/") (one) (a b c) (("x") y) z ("" "y")
  (" " "!")) " \n" "\"/" "" "\"" "\\" "")
(test-tokenizer q quotes.txt)
(def-tokenizer :name s :separator "--" :long-quotes (("<" ">")))
(test-tokenizer s in.txt)
(def-socket-tokenizer a b :name one :separator "")
(test-tokenizer one -)
