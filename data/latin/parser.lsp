; The analyser and the parser; then the nodes of the network, with the attributes that they show.

(make-lex-analyzer latin-analyzer :lexicon latin :lexical-rules latin-rules)
(def-torvane-parser latin-parser
  :attribute-vector-type syn
  :lexical-attributes (lexitem)
  :show-attributes (cat case num)
  :default-percolating-attributes (move)
  :weights-of-words (if (reg-match "^[^A-Za-z0-9]*$") (int 1) (int 25))
  :lexical-analyzer latin-analyzer)
(init-attributes)

(def-category Adv)
(def-category Comp)
(def-category Aux (visible-atts (vform num person)))
(def-category A (visible-atts (case num gender)) (conj-atts () (case num gender)))
(def-category P (visible-atts (case)))
(def-category Pro (visible-atts (case num gender person)))
(def-category RelPro (visible-atts (case num gender)))
(def-category NN (visible-atts (case num gender person)))
(def-category N (visible-atts (case num gender person)) (conj-atts () (case person)))
(def-category PP)

; A verb with what depends on it: a main clause if it is finite, else an infinitive with its subject.
(def-category V (visible-atts (vform num person subj acc dat aci)))
(def-category Cl (visible-atts (vform num person gender subj acc dat aci)) (conj-atts () (vform)))
(def-category SubC)
(def-category Rel (visible-atts (num gender subj acc dat)))
