; The analyser and the parser; then the nodes of the network, with the attributes that they show.

(make-lex-analyzer german-analyzer :lexicon german :lexical-rules german-rules)
(def-torvane-parser german-parser
  :attribute-vector-type syn
  :lexical-attributes (lexitem)
  :show-attributes (cat agr)
  :default-percolating-attributes (move)
  :weights-of-words (if (reg-match "^[^A-Za-z0-9\128-\255]*$") (int 1) (int 25))
  :lexical-analyzer german-analyzer)
(init-attributes)

(def-category Det (visible-atts (agr decl spec)))
(def-category A (visible-atts (agr decl)) (conj-atts () (agr decl)))
(def-category Pred (visible-atts (agr)) (conj-atts () (agr)))   ; klein, müde: an adjective as a predicate
(def-category Adv)
(def-category Deg)
(def-category P (visible-atts (agr verbal)))
(def-category Prt (visible-atts (particle)))
(def-category Aux (visible-atts (agr vform perf)))
(def-category Comp (visible-atts (adverbial)))
(def-category RelPro (visible-atts (agr ante)))
(def-category Pro (visible-atts (agr spec)))

; A noun phrase: NN is a noun, NB has its adjectives, N0 a determiner, N what follows; a PP has a preposition.
(def-category NN (visible-atts (agr spec)))
(def-category NB (visible-atts (agr spec decl)))
(def-category N0 (visible-atts (agr spec decl)))
(def-category N (visible-atts (agr)))
(def-category PP (visible-atts (agr verbal)))

; A clause: VK is a verb at the end of its clause, with the auxiliary behind it; VF has all that stands before it.
(def-category V (visible-atts (agr vform perf nom acc dat clause particle final)))
(def-category VK (visible-atts (agr vform perf nom acc dat clause)))
(def-category VF (visible-atts (agr vform perf nom acc dat clause)))
(def-category SV (visible-atts (agr vform nom acc dat particle front)))      ; a main clause with one verb: Er sieht ihn.
(def-category SA (visible-atts (agr vform nom acc dat front)))      ; ... with an auxiliary: Er hat ihn gesehen.
(def-category S (visible-atts (front)))
(def-category SubC (visible-atts (adverbial)))                      ; dass er ihn sieht
(def-category Rel (visible-atts (ante nom acc dat)))                ; den er sieht
