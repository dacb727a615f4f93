; The endings, and the words. Entries are stems: an ending is cut off and nothing put in its place; inflection.lsp says
; what it means for which class of stems, and `lemma` is the form of the dictionary.
(make-lexicon latin 401 :ending-table (
  (p "" bare)
  (p a a) (p ae ae) (p am am) (p arum arum) (p as as)               ; puella
  (p us us) (p i i) (p o o) (p um um) (p orum orum) (p os os) (p is is)
  (p em em) (p e e) (p es es) (p ibus ibus)                         ; rex
  (p at at) (p ant ant) (p are are) (p eo eo) (p et et) (p ent ent) (p ere ere)
  (p it it) (p unt unt) (p io io) (p iunt iunt) (p ire ire) (p erunt erunt)))

(lex latin
  ; Nouns.
  (puell (avm (f1 (lemma puella)))) (ros (avm (f1 (lemma rosa)))) (aqu (avm (f1 (lemma aqua))))
  (silv (avm (f1 (lemma silva)))) (poet (avm (m1 (lemma poeta)))) (femin (avm (f1 (lemma femina))))
  (serv (avm (m2 (lemma servus)))) (domin (avm (m2 (lemma dominus)))) (gladi (avm (m2 (lemma gladius))))
  (lup (avm (m2 (lemma lupus)))) (fili (avm (m2 (lemma filius))) (avm (f1 (lemma filia))))
  (bell (avm (n2 (lemma bellum)))) (don (avm (n2 (lemma donum)))) (templ (avm (n2 (lemma templum))))
  (rex (avm (m3-nom))) (reg (avm (m3 (lemma rex)))) (miles (avm (m3-nom))) (milit (avm (m3 (lemma miles))))
  (pater (avm (m3-nom))) (patr (avm (m3 (lemma pater)))) (urbs (avm (f3-nom))) (urb (avm (f3 (lemma urbs))))
  (nomen (avm (n3-nom))) (nomin (avm (n3 (lemma nomen))))
  (Marc (avm (m2 +proper (lemma Marcus)))) (Iuli (avm (f1 +proper (lemma Iulia))))

  ; Pronouns.
  (ego (avm (pron (case nom) (num sg) (person p1)))) (me (avm (pron (case acc abl) (num sg))))
  (mihi (avm (pron (case dat) (num sg)))) (te (avm (pron (case acc abl) (num sg))))
  (tibi (avm (pron (case dat) (num sg))))
  (eum (avm (pron (case acc) (num sg) (gender m)))) (eam (avm (pron (case acc) (num sg) (gender f))))
  (ei (avm (pron (case dat) (num sg))))
  (qui (avm (rel (case nom) (num sg pl) (gender m)))) (quae (avm (rel (case nom) (num sg pl) (gender f))))
  (quem (avm (rel (case acc) (num sg) (gender m)))) (quam (avm (rel (case acc) (num sg) (gender f))))
  (quod (avm (rel (case nom acc) (num sg) (gender n)))) (cui (avm (rel (case dat) (num sg))))

  ; Adjectives and adverbs.
  (bon (avm (adj-m (lemma bonus))) (avm (adj-f (lemma bonus))) (avm (adj-n (lemma bonus))))
  (magn (avm (adj-m (lemma magnus))) (avm (adj-f (lemma magnus))) (avm (adj-n (lemma magnus))))
  (me (avm (adj-m (lemma meus))) (avm (adj-f (lemma meus))) (avm (adj-n (lemma meus))))
  (pulcher (avm ((cat a) (gender m) (num sg) (case nom))))
  (pulchr (avm (adj-m (lemma pulcher))) (avm (adj-f (lemma pulcher))) (avm (adj-n (lemma pulcher))))
  (non (avm ((node Adv)))) (saepe (avm ((node Adv)))) (hodie (avm ((node Adv))))

  ; Verbs.
  (am (avm (v-acc (class c1) (lemma amo)))) (amav (avm (v-acc (class perf) (lemma amo))))
  (port (avm (v-acc (class c1) (lemma porto)))) (nec (avm (v-acc (class c1) (lemma neco))))
  (necav (avm (v-acc (class perf) (lemma neco)))) (pugn (avm (v (class c1) (lemma pugno))))
  (d (avm (v-dat-acc (class c1) (lemma do)))) (ded (avm (v-dat-acc (class perf) (lemma do))))
  (vid (avm (v-acc (class c2) (lemma video))) (avm (v-aci (class c2) (lemma video)))
       (avm (v-acc (class perf) (lemma video))))
  (plac (avm (v-dat (class c2) (lemma placeo))))
  (dic (avm (v-aci (class c3) (lemma dico)))) (dix (avm (v-aci (class perf) (lemma dico))))
  (leg (avm (v-acc (class c3) (lemma lego)))) (dorm (avm (v (class c4) (lemma dormio))))
  (ven (avm (v (class c4) (lemma venio)))) (ambul (avm (v (class c1) (lemma ambulo))))
  (est (avm ((cat i) (node Aux) (vform fin) (num sg) (person p3) (lemma sum))))
  (sunt (avm ((cat i) (node Aux) (vform fin) (num pl) (person p3) (lemma sum))))
  (esse (avm ((cat i) (node Aux) (vform inf) (lemma sum))))

  ; Prepositions, with the case that they govern; conjunctions.
  (in (avm ((cat p) (case abl acc)))) (cum (avm ((cat p) (case abl)))) (sine (avm ((cat p) (case abl))))
  (ex (avm ((cat p) (case abl)))) (ad (avm ((cat p) (case acc)))) (per (avm ((cat p) (case acc))))
  (et (avm ((cat j)))) (quod (avm ((cat j) (node Comp)))) (dum (avm ((cat j) (node Comp)))))
