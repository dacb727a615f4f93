; In place of the attributes that cases share.
(def-att-list syn
  (defattribute args StrAtt) (defattribute cm BinAtt) (defattribute cat EnumAtt (allowable-values a c d i j n p v))
  (defattribute cform StrAtt) (defattribute check DisjAtt (allowable-values wh np)) (defattribute control BinAtt)
  (defattribute govern BinAtt) (defattribute guest BinAtt) (defattribute head_final BinAtt)
  (defattribute last_conj BinAtt) (defattribute lexitem IntAtt) (defattribute node StrAtt) (defattribute opt BinAtt)
  (defattribute pform StrAtt) (defattribute rare BinAtt) (defattribute ref StrAtt) (defattribute role StrAtt)
  (defattribute slash DisjAtt (allowable-values np pp)) (defattribute trace TraceAtt))
(make-avmeaning-proto syn avm)
