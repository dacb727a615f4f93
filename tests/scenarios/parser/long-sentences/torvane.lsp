; Sentences far beyond any that a grammar is written for. Where the pool of items ends, the sentence does
; not; nor does it harm the next one.
(def-att-list syn
  (defattribute args ListAtt) (defattribute cm BinAtt)
  (defattribute cat EnumAtt (allowable-values a c d i j n p v))
  (defattribute cform StrAtt) (defattribute check DisjAtt (allowable-values wh np pp))
  (defattribute control BinAtt) (defattribute govern BinAtt) (defattribute guest BinAtt)
  (defattribute head_final BinAtt) (defattribute last_conj BinAtt) (defattribute lexitem EntAtt)
  (defattribute move ListAtt) (defattribute node StrAtt) (defattribute opt BinAtt)
  (defattribute pform StrAtt) (defattribute rare BinAtt) (defattribute ref StrAtt)
  (defattribute role StrAtt) (defattribute slash DisjAtt (allowable-values wh np pp))
  (defattribute trace TraceAtt) (defattribute num EnumAtt (allowable-values sg pl)))
(make-lexicon dict 101)
(make-avmeaning-proto syn avm)
(lex dict
  (boy (avm ((cat n)))) (big (avm ((cat a)))))
(make-lex-analyzer la :lexicon dict)
(def-torvane-parser tp :attribute-vector-type syn :lexical-attributes (lexitem)
  :show-attributes (cat) :default-percolating-attributes ()
  :weights-of-words (int 0) :lexical-analyzer la)
(init-attributes)

(def-category A) (def-category N)
(def-modifiers N (* (A (dep-type mod))) (:head) (* (A (dep-type mod))))
(roots (N))

(load long.lsp)
(p3 "big boy big")
(def-modifiers N (* (N (dep-type left))) (:head) (* (N (dep-type right))))
(load every-word-on-every-word.lsp)
(p3 "boy boy boy")

; An empty item before the first word fills the pool: one head that takes it over and over, and itself over
; and over.
(def-rules front (e (word-seq boy) (insert-empty-category (int 0) (avm (avm ((cat a)))))))
(make-lex-analyzer la2 :lexicon dict :lexical-rules front)
(def-torvane-parser tp2 :attribute-vector-type syn :lexical-attributes (lexitem)
  :show-attributes (cat) :default-percolating-attributes ()
  :weights-of-words (int 0) :lexical-analyzer la2)
(def-category A (visible-atts (cat))) (def-category N (visible-atts (cat)))
(def-modifiers N (* (A (dep-type mod))) (:head))
(roots (N))
(load fronts.lsp)
(def-modifiers A (* (A (dep-type mod))) (:head))
(load fronts.lsp)
(exit)
