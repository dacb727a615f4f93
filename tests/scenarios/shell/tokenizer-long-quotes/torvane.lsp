(def-tokenizer :name t :long-quotes (("\"\"\"" "\"\"\"") ("/*" "*/") (one) (a b c) (("x") y) z ("" "y")
  (" " "!")) " \n" "\"/" "" "\"" "\\" "")
(test-tokenizer t in.txt)
(exit)
