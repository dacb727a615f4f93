import pathlib
forms = """set-high set-low set-head set-weight add-weight set-lexitem-root assert duplicate-lexitem delete
delete-smaller delete-if delete-except del-following keep-tags followed-by followed-by-word preceded-by-word
look-up exist-lexitem exist-word-in-sentence exist-covering-lexitem exist-overlapping-lexitem add-components
add-component find-prev-occ insert-empty-category skip flag-adv flag-first-conjunction flag-last-conjunction
rm-non-max abbrev-def abbrev-with-def make-lexitem retrieve-lexitem register-name combine-lexitems
set-mixed-case is-mixed-case att lexitem-meaning root surform lexitem-rel ending cap lexitem-length
no-alternative is-deleted get-sub-lexitem set-cate litem meaning low high matching-word analyzer $
foreach-match-component apply-llrule sbnd current-token token clear-ante-list exist-exact-match
covered-by-antecedent is-abbrev matching-name abbrev-of""".split()
patterns = """word lexitem not-in-lexicon collect-lexitems . * + ? no seq ! or-pat & and-pat ^
beginning-of-sentence $ end-of-sentence whole-sentence word-seq""".split()
items = ["(litem)", "(comp ($ 2) (litem))", "(nil)", "(int -1)", "(str text)", "(analyzer)", "(meaning)",
         "(pred (t))", "(named-obj names AntecedentList)"]
arguments = ["", "names", "(t)", "(pred (nil))", "((t))", "() x", ":root", "-1 (t) (t)", "(t) (t) (t) (t) (t) (t)",
             "(int 1) (int 3) (pred (t))", "(int -7) (int 99) (litem)", "(litem) (int 30000)", "(litem) (int 1) (int 9) (t)"]
arguments += [f"{i} {j}" for i in items for j in items[:5]]
actions = [f"({form} {a})" for form in forms for a in arguments]
inputs = ["{}", "(comp (litem) {})", "(comp (analyzer) {})", "(comp (matching-word) {})", "(comp (nil) {})"]
rules = [f"(r{i} (! (seq (lexitem (t)) (lexitem (t))) (lexitem (t)) (.)) {inputs[i % 5].format(a)})"
         for i, a in enumerate(actions)]
odd_parts = ["", "a", "(t)", "(lexitem)", "(word bogus)", "()", "((a))", ":min", ":front-to-back a", ":overlapping",
             "(constraint)", "(constraint bogus) a", "a b c", "(word (litem))", "(? (* (+ (no ($)))))"]
rules += [f"(p ({head} {part}) (low))" for head in patterns for part in odd_parts]
commands = "def-rules insert-lex-rules debug-rules make-llrule def-sentence-separator make-antecedent-list clear-antecedent-list"
text = "(def-rules R\n" + "\n".join(rules) + ")\n"
text += "\n".join(f"({c} {a})" for c in commands.split() for a in ["", "x", "(x)", "names", "L x", "R", "R (x) (y) z", "R x (x)"])
pathlib.Path("rules.lsp").write_text(text + "\n")
pathlib.Path("evaluations.lsp").write_text(
    "\n".join(f"(eval {a}) (foreach (x) :eval {a})" for a in actions[::3]) + "\n")
