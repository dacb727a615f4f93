; Attributes of words as the parser looks for them, and meanings made of them.
(def-att-list syn
  (defattribute args ListAtt) (defattribute cm BinAtt)
  (defattribute cat EnumAtt (allowable-values a c d i j n p v))
  (defattribute cform StrAtt) (defattribute check DisjAtt (allowable-values wh np))
  (defattribute control BinAtt) (defattribute govern BinAtt) (defattribute guest BinAtt)
  (defattribute head_final BinAtt) (defattribute last_conj BinAtt) (defattribute lexitem EntAtt)
  (defattribute move ListAtt) (defattribute node StrAtt) (defattribute opt BinAtt)
  (defattribute pform StrAtt) (defattribute rare BinAtt) (defattribute ref StrAtt)
  (defattribute role StrAtt) (defattribute slash DisjAtt (allowable-values wh np))
  (defattribute trace TraceAtt) (defattribute num EnumAtt (allowable-values sg pl)))
(make-avmeaning-proto syn avm)
; A line that tells what a sentence shows; what is printed while it is parsed goes on behind the bar.
(defmacro sentence (what text)
  (eval (prog (comp (str what) (print-str :prefix "-- ")) (comp (str text) (print-str :prefix " " :suffix " |"))))
  (p3 text))
