; Databases that are made of what does not exist, and commands that take no database.
(make-simworddb) (make-simworddb (list)) (make-simworddb twice) (make-simworddb twice)
(make-simworddb gone :src no.src :noun no.hdr :db no.hdr) (simwords gone dog)
(make-simworddb vague :src :db)
(make-simworddb listed :size (5) :min-sim (1) :max-syns many :src (words.src)) (simwords listed dog)
(make-lexicon words 11) (simwords words dog) (get-sim words dog cat) (get-group-sims nosims N (dog))
(expand-using-group-sims) (get-grouped-sim-words)
