; The endings, and the words. (p SUFFIX NAME REPLACEMENT): SUFFIX is cut off and REPLACEMENT put there, what comes
; out is looked up, and NAME is remembered; inflection.lsp says what it means. All comparisons are of bytes: ä is two
; of them, so an ending may hold it like any other letters.
(make-lexicon german 401 :ending-table (
  (p "" bare)
  (p e e) (p en en) (p n n) (p er er) (p ern ern) (p s s) (p es es) (p em em)     ; nouns, adjectives
  (p e ich en) (p st du en) (p t er en) (p te ich-er en) (p ten wir en)))         ; verbs

(lex german
  ; Determiners.
  (der (avm (the (agr mn fd fg pg)))) (die (avm (the (agr fn fa pn pa)))) (das (avm (the (agr nn na))))
  (den (avm (the (agr ma pd))))       (dem (avm (the (agr md nd))))       (des (avm (the (agr mg ng))))
  (ein  (avm (a-an (agr mn nn na))))  (eine (avm (a-an (agr fn fa))))     (einen (avm (a-an (agr ma))))
  (einem (avm (a-an (agr md nd))))    (einer (avm (a-an (agr fd fg))))    (eines (avm (a-an (agr mg ng))))
  (kein (avm (a-an (agr mn nn na))))  (keine (avm (a-an (agr fn fa pn pa)))) (keinen (avm (a-an (agr ma pd))))

  ; Relative pronouns: their own case in `agr`, whom they go back to in `ante`.
  (der (avm (rel (agr mn) (ante m))) (avm (rel (agr fd) (ante f))))
  (die (avm (rel (agr fn fa) (ante f))) (avm (rel (agr pn pa) (ante p))))
  (das (avm (rel (agr nn na) (ante n))))
  (den (avm (rel (agr ma) (ante m))))
  (dem (avm (rel (agr md nd) (ante m n))))
  (denen (avm (rel (agr pd) (ante p))))

  ; Pronouns.
  (ich (avm (pron (agr i)))) (mich (avm (pron (agr ma fa)))) (mir (avm (pron (agr md fd))))
  (du (avm (pron (agr u)))) (wir (avm (pron (agr w)))) (uns (avm (pron (agr pa pd))))
  (er (avm (pron (agr mn)))) (ihn (avm (pron (agr ma)))) (ihm (avm (pron (agr md nd))))
  (sie (avm (pron (agr fn fa pn pa)))) (ihr (avm (pron (agr fd)))) (es (avm (pron (agr nn na))))
  (wer (avm (pron (agr mn)))) (wen (avm (pron (agr ma)))) (wem (avm (pron (agr md)))) (was (avm (pron (agr nn na))))

  ; Nouns. A plural with an umlaut is an entry of its own.
  (Mann (avm (m))) (Männer (avm (irregular-plural (lemma Mann))))
  (Hund (avm (m (plural e)))) (Brief (avm (m (plural e))))
  (Garten (avm (m))) (Gärten (avm (irregular-plural-n (lemma Garten))))
  (Student (avm (weak-m (plural en))))
  (Frau (avm (f (plural en)))) (Katze (avm (f (plural n)))) (Tür (avm (f (plural en))))
  (Straße (avm (f (plural n)))) (Schule (avm (f (plural n))))
  (Kind (avm (n (plural er)))) (Wasser (avm (n)))
  (Buch (avm (n))) (Bücher (avm (irregular-plural (lemma Buch))))
  (Haus (avm (n))) (Häuser (avm (irregular-plural (lemma Haus))))
  (Peter (avm (him))) (Anna (avm (her))) (Jörg (avm (him)))

  ; Adjectives, adverbs.
  (alt (avm ((cat a)))) (klein (avm ((cat a)))) (groß (avm ((cat a)))) (schön (avm ((cat a)))) (müde (avm ((cat a))))
  ; What ends in a letter that is no ASCII one is listed with the full stop too: see docs/another-language.md.
  (groß. (avm ((cat a) (lemma groß)))) (groß? (avm ((cat a) (lemma groß))))
  (heute (avm ((node Adv)))) (oft (avm ((node Adv)))) (hier (avm ((node Adv)))) (gern (avm ((node Adv))))
  (nicht (avm ((node Adv)))) (sehr (avm ((node Deg))))

  ; Verbs: the infinitive, then the forms that the endings do not give.
  (schlafen (avm (v))) (schläft (avm (v er (lemma schlafen)))) (geschlafen (avm (v had (lemma schlafen))))
  (gehen (avm (v))) (gegangen (avm (v been (lemma gehen))))
  (sehen (avm (v-acc))) (siehst (avm (v-acc du (lemma sehen))))
  (sieht (avm (v-acc er (lemma sehen)))) (gesehen (avm (v-acc had (lemma sehen))))
  (lesen (avm (v-acc)) (avm (v))) (liest (avm (v-acc er (lemma lesen))) (avm (v er (lemma lesen))))
  (gelesen (avm (v-acc had (lemma lesen))))
  (kaufen (avm (v-acc)) (avm (v-dat-acc))) (gekauft (avm (v-acc had (lemma kaufen))))
  (suchen (avm (v-acc))) (gesucht (avm (v-acc had (lemma suchen))))
  (helfen (avm (v-dat))) (hilfst (avm (v-dat du (lemma helfen))))
  (hilft (avm (v-dat er (lemma helfen)))) (geholfen (avm (v-dat had (lemma helfen))))
  (danken (avm (v-dat))) (gedankt (avm (v-dat had (lemma danken))))
  (geben (avm (v-dat-acc))) (gibt (avm (v-dat-acc er (lemma geben)))) (gab (avm (v-dat-acc ich-er (lemma geben))))
  (gegeben (avm (v-dat-acc had (lemma geben))))
  (zeigen (avm (v-dat-acc))) (gezeigt (avm (v-dat-acc had (lemma zeigen))))
  (sagen (avm (v-clause))) (gesagt (avm (v-clause had (lemma sagen))))
  (weiß (avm (v-clause ich-er (lemma wissen))))

  ; A verb whose prefix is written apart in a main clause: kommt ... an, but ankommt at the end of a clause.
  (kommen (avm (v)) (avm (v (particle an) (lemma ankommen)))) (gekommen (avm (v been (lemma kommen))))
  (ankommen (avm (v +final))) (angekommen (avm (v been (lemma ankommen))))
  (an (avm ((node Prt) (particle an))))

  ; Auxiliaries.
  (hat (avm (have er)) (avm (v-acc er (lemma haben)))) (habe (avm (have ich)))
  (haben (avm (have wir (lemma haben))))
  (ist (avm (be er)) (avm (cop er))) (bin (avm (be ich)) (avm (cop ich))) (sind (avm (be wir)) (avm (cop wir)))
  (kann (avm (modal ich-er))) (können (avm (modal wir))) (will (avm (modal ich-er)))

  ; Prepositions: the case that they govern is in `agr`. `in` and `auf` have two.
  (mit (avm ((cat p) (dative)))) (aus (avm ((cat p) (dative)))) (von (avm ((cat p) (dative))))
  (für (avm ((cat p) (accusative)))) (ohne (avm ((cat p) (accusative)))) (über (avm ((cat p) (accusative))))
  (Über (avm ((cat p) (accusative) (lemma über))))               ; Ü and ü are different bytes
  (in (avm ((cat p) +verbal (agr md fd nd pd ma fa na pa))))
  (auf (avm ((cat p) +verbal (agr md fd nd pd ma fa na pa))))

  ; What opens a clause with its verb at the end.
  (dass (avm ((cat j) (node Comp) -adverbial))) (ob (avm ((cat j) (node Comp) -adverbial)))
  (weil (avm ((cat j) (node Comp) +adverbial))) (wenn (avm ((cat j) (node Comp) +adverbial)))
  (und (avm ((cat j)))))
