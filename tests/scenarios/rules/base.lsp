; What the cases share: attributes, kinds of meanings, an empty lexicon, and functions that show a match.
(def-att-list syn
  (defattribute cat EnumAtt (allowable-values a c d i j n p v))
  (defattribute args ListAtt) (defattribute cm BinAtt) (defattribute cform StrAtt)
  (defattribute check DisjAtt (allowable-values wh np)) (defattribute control BinAtt)
  (defattribute govern BinAtt) (defattribute guest BinAtt) (defattribute head_final BinAtt)
  (defattribute last_conj BinAtt) (defattribute lexitem EntAtt) (defattribute move ListAtt)
  (defattribute node StrAtt) (defattribute opt BinAtt) (defattribute pform StrAtt)
  (defattribute rare BinAtt) (defattribute ref StrAtt) (defattribute role StrAtt)
  (defattribute slash DisjAtt (allowable-values wh np)) (defattribute trace TraceAtt)
  (defattribute num EnumAtt (allowable-values sg pl)))
(make-avmeaning-proto syn avm)
(make-lexicon L 101 :ending-table ((p "" bare) (p s s)))

; "LOW-HIGH words" of a match, in a line
(defun show-span ()
  (comp (format (comp (low) (int2str)) "-" (comp (high) (int2str)) " " (matching-word))
        (print-str :suffix "\n")))
; the root of an item, in a line; "none" of nothing
(defun show-root () (if (ident) (comp (root) (print-str :suffix "\n"))
                                (comp (str none) (print-str :suffix "\n"))))
(defun say (text) (comp (get-val text) (print-str :suffix "\n")))
(defun yes-or-no (what test)
  (comp (format (get-val what) " " (if (get-val test) (str yes) (str no))) (print-str :suffix "\n")))
; The analyser with a set of rules, and a parser around it.
(defmacro run (rules analyser parser)
  (make-lex-analyzer analyser :lexicon L :lexical-rules rules)
  (def-torvane-parser parser :attribute-vector-type syn :lexical-attributes (lexitem)
    :show-attributes (cat) :default-percolating-attributes () :weights-of-words (int 1)
    :lexical-analyzer analyser)
  (init-attributes))
