; Whether the tokens that a tokenizer makes of a text are among some words.
(def-tokenizer :name plain " " ";" "," "\"" "" "")
(def-tokenizer :name pieces :separator "--")
(foreach ("the quick, Fox; ran" "\"a fox\" here" "slow ox" "") :eval
  (prog (comp (contain-tokens :tokenizer plain (fox ";" "\"a fox\"")) (print-str :suffix ", in the same case "))
        (comp (contain-tokens :case :tokenizer plain (fox Fox)) (print-str :suffix "\n"))))
(echo -- with separators)
(foreach ("a--b--c") :eval (prog
  (comp (contain-tokens :tokenizer pieces (b--)) (contain-tokens :tokenizer pieces (b--)) (print-str :suffix ", without the separator "))
  (comp (contain-tokens :tokenizer pieces (b)) (print-str :suffix "\n"))))
(echo -- without a tokenizer)
(foreach (a) :eval (prog (comp (contain-tokens (a)) (print-str :suffix "\n")) (contain-tokens :tokenizer nobody (a))))
