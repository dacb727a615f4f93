; Sources and dictionaries that are cut, far too long, or hold what is no word or number.
(make-simworddb sims :src words.src) (simwords sims odd unknown list again moved cut stray)
(echo == long ones)
(make-simworddb long :src long.src)
(get-sim long wide w199999) (get-sim long wide w0) (get-sim long deep a)
(echo == dictionaries)
(make-simworddb dicts :noun noun.hdr :min-sim 0 :max-syns 3)
(simwords dicts dog none bare open odd nosims two minus nosuch (list))
(make-simworddb all :noun noun.hdr :max-syns -1) (get-sim all endless w199999)
