; Similar words as forms and as pages, plain or in colours.
(make-simworddb sims :src words.src) (simwords sims w ";" a)
(echo == plain) (get-grouped-sim-words sims :words (w nosuch))
(echo == colours) (get-grouped-sim-words sims :colors (black red blue) :url "<a href=x?" :words (W))
(echo == one colour)
(get-grouped-sim-words sims :colors (black) :words (w))
(get-grouped-sim-words sims two) (get-grouped-sim-words sims :words) (get-grouped-sim-words :words (two) nosims)
