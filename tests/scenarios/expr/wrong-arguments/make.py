FORMS = """prog prog1 comp if when one-of cond list not or xor and t nil is-nil ident setq get-val let 1/2
2/2 exec-commands open-file close-file set-tokenizer-input set-tokenizer-string-input eq pred named-obj
int str input output reg-match reg-sub suffix in inverse stem-word last-word str-eq strstr str-prefix str=
print-str pad flush-output exist-word all-words int2str ent2str null-str remove-punc remove-char format
str-sim contain-tokens write-to-file remove-prefix int-eq int-gt int-diff int-sum +1 -1""".split()
COMMANDS = "declare-var defun eval foreach flush make-word-list add-to-word-list".split()
ARGUMENTS = ["", "atom", "()", "(t)", "(nil)", "(ident)", "((t))", "(int 5)", "(str text)", '""', "tok (t) (t) (t) (t) (t)",
             "(t) (t) (t) (t) (t) (t)", "a b c d e f", ":is", ":is (t)", "(t) :is", ":prefix", ":suffix () (t)",
             ":write :write", ":hashsize", ":hashsize () (a)", ":wordlist", ":tokenizer", ":tokenizer ()", ":mode",
             ":eval", ":eval (t)", "(a b) :eval", "(a b) :eval atom", "((a b)) :eval (print-str)", "tok (output)",
             "tok (int 5)", "(named-obj tok Tokenizer) (int 77)", "g (t)", "(g) (t)", "((g int) (g)) (setq g (str a))"]

with open("torvane.lsp", "w") as out:
    out.write('(def-tokenizer :name tok " " "" "" "" "" "") (declare-var g) (declare-var number)')
    out.write("(eval (setq number (int 123456789)))\n")
    for form in FORMS:
        for arguments in ARGUMENTS:
            exp = f"({form} {arguments})"
            out.write(f'(eval {exp}) (foreach ("a text" "" (list)) :eval {exp})\n')
            out.write(f"(eval (get-val number {exp}) (comp (named-obj tok Tokenizer) {exp}) (comp (list (t)) {exp})"
                      f" (comp (output) {exp}) (comp (pred (t)) {exp}))\n")
    for command in COMMANDS:
        for arguments in ARGUMENTS:
            out.write(f"({command} {arguments})\n({command} name {arguments})\n({command} (a) {arguments})\n")
    out.write('(echo "\\nthe end") (exit)\n')
