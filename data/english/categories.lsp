; The nodes of the network, and which attributes an item shows to the nodes above it. Two items of one
; node and span that agree in these are the same for the rest of the grammar. Phrases show their head word
; (lexitem), so that counts of what depends on what can weigh them.

(def-category Conn)                                         ; and, but: as an opening word
(def-category Comp)                                         ; that, whether
(def-category Sub)                                          ; when, because
(def-category Neg)
(def-category Sign)                                         ; *** in a line of its own
(def-category Intj)                                         ; yes, please, lol
(def-category ItIs (visible-atts (vform)))                  ; its, ill
(def-category Gen)                                          ; 's
(def-category RelPro)                                       ; who, which, that
(def-category Aux (visible-atts (vform own agr)))
(def-category Adv (visible-atts (wh deg focus loc front)))
(def-category Num (visible-atts (lexitem agr spec time counted)))
(def-category Det (visible-atts (agr spec wh rel pre alone few)))

; A noun phrase grows through four nodes: NN, a noun of the lexicon; NB, with what describes it;
; N0, with determiner and number; N, with what follows it.
(def-category NN (visible-atts (lexitem agr count spec proper human title that to time)))
(def-category NB (visible-atts (lexitem agr count spec proper that to time)))
(def-category Meas (visible-atts (lexitem)))                ; two year, in a two year contract
(def-category Pro (visible-atts (lexitem agr case spec pro some part time wh)))
(def-category NPoss (visible-atts (lexitem spec wh rel)))   ; a noun phrase with 's
(def-category N0 (visible-atts (lexitem agr case count spec pro some part proper that to time counted wh rel)))
(def-category N (visible-atts (lexitem agr case count spec pro some part proper that to time counted wh rel)))
(def-category Ger (visible-atts (lexitem agr move)))        ; swimming, as a noun phrase

(def-category A (visible-atts (lexitem deg wh heavy)) (subcat-atts (move)))
(def-category P (visible-atts (lexitem pform verbal time move wh)))

; A verb grows likewise: V, with what its frame asks for; VP, with the free adjuncts behind it;
; VG, with auxiliaries and adverbs before it; then a clause, finite (S, Q, Imp) or not (I).
(def-category V (visible-atts (lexitem vform agr move)))
(def-category V_N_P (visible-atts (lexitem vform agr move)))
(def-category V_N_VB (visible-atts (lexitem vform agr move)))
(def-category V_VB (visible-atts (lexitem vform agr move)))
(def-category VP (visible-atts (lexitem vform agr move)))
(def-category VG (visible-atts (lexitem vform agr move)))
(def-category VF (visible-atts (lexitem vform agr move)))   ; finite: reads, is ready
(def-category S (visible-atts (lexitem move wh)))           ; she reads
(def-category Subj (visible-atts (lexitem marked)))             ; that he be there
(def-category Cmp (visible-atts (lexitem)))                 ; the more
(def-category CmpS (visible-atts (lexitem)))                ; the more she reads
(def-category CmpP (visible-atts (lexitem)))                ; the better it is, the higher the price
(def-category Corr (visible-atts (lexitem)))                ; the more she reads, the more she knows
(def-category Gap (visible-atts (lexitem)))                 ; and Anna a cake
(def-category RunIn (visible-atts (lexitem)))               ; its ready
(def-category Q (visible-atts (lexitem move wh)))           ; does she read
(def-category QP (visible-atts (lexitem)))                  ; who is she, here is a book
(def-category HowAbout (visible-atts (lexitem)))            ; how about tea
(def-category Inv (visible-atts (lexitem)))                 ; on the hill stood a house
(def-category Tag (visible-atts (lexitem)))                 ; didn't you
(def-category CP (visible-atts (lexitem wh marked)))        ; what it is
(def-category Imp (visible-atts (lexitem)))                 ; read!
(def-category Rep (visible-atts (lexitem)))                 ; said she
(def-category I (visible-atts (lexitem move cm)))           ; to read, there to be
(def-category WhI (visible-atts (lexitem move marked)))            ; how to read
(def-category C (visible-atts (lexitem move wh marked)))    ; that she reads, what she reads
(def-category SubC (visible-atts (lexitem)))                ; when she reads
(def-category With)                                         ; with, before a clause without `be`
(def-category Abs (visible-atts (lexitem)))                 ; the door open, his work done
(def-category WithC (visible-atts (lexitem)))               ; with the door open
(def-category PSub)                                         ; a preposition before a clause
(def-category PC (visible-atts (lexitem)))                  ; about what she reads
(def-category RelS (visible-atts (lexitem)))                ; who reads
(def-category RelO (visible-atts (lexitem move marked)))    ; that she reads __
(def-category RelA (visible-atts (lexitem)))                ; where she reads

; What stands in brackets, whatever it is.
(def-category Paren (visible-atts ()))

; Pieces that are joined by nothing better, see text.lsp.
(def-category Text (visible-atts ()))
(def-category Joined (visible-atts (lexitem)))

; What may stand between a verb and its argument: he told me yesterday that ... The parser knows this node
; by its name; such a guest costs 10.
(def-category Adjunct)
