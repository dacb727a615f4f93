; Words that English writes as one: don't, it's, children's.

; What such a token is as a word of its own. Letters of it that the token lacks come over from the word before: the
; sentence tokenizer cuts at the apostrophe, is|n't at isn|'t. Who writes a tree for others asks with the token in
; small letters.
(defun clitic ()
  (cond ((in ("'t")) (str "n't"))
        ((in ("n't" "'s" "'m" "'re" "'ve" "'ll" "'d")) (ident))))

; Base forms of what is left of the words.
(defun universal-lemma ()
  (cond ((and (cat (str= Neg)) (node2word (in ("'t" "n't")))) (str not))
        ((cat (in (Pro Det)))
         (cond ((node2word (in (i))) (str I)) ((node2word (in (me))) (str I))
               ((node2word (in (us))) (str we)) ((node2word (in (him))) (str he)) ((node2word (in (them))) (str they))
               ((node2word (in (an))) (str a)) ((node2word (in (these))) (str this)) ((node2word (in (those)))
                       (str that))
               ((and (node2word (in (her))) (not (rel (str= det)))) (str she))))
        ((cat (str= Aux))
         (cond ((node2word (in ("'m" "'re" am is are was were been being isn aren wasn weren))) (str be))
               ((and (node2word (in ("'s"))) (node2attvec (strict-unifiable (vform) ((vform prd))))) (str be))
               ((node2word (in ("'ve" "'s" has had having haven hasn hadn))) (str have))
               ((node2word (in (gets got gotten getting))) (str get))
               ((node2word (in (does did don doesn didn))) (str do))
               ((node2word (in ("'ll" won))) (str will))
               ((node2word (in (couldn))) (str could))
               ((node2word (in (wouldn))) (str would))
               ((node2word (in (shouldn))) (str should))
               ((node2word (in (mustn))) (str must))))))

; Tokens without a blank between them that are one word, or the beginning of one: rows of signs, faces made of signs,
; addresses, telephone numbers, names such as O'Neill, words with a prefix or suffix. Other words with a hyphen are
; cut at it.
(defun one-word ()
  (or (reg-match "^[.][.]+$" "^[-=]-+=*$" "^==+-*$" "^-=+$" "^[!?][!?]+$" "^[*][*]+$" "^__+$" "^~~+$" "^[$][$]+$"
                 "^[:;=8]-$" "^[:;=8]-?[)(DPp]+$" "^[.:][?]$" "^!+[.]$")
      (reg-match "^https?:[^ ]*[^]) >\"';,.!]$" "^www[.][^ ]*[^]) >\"';,.!]$" "^[A-Za-z0-9.]*[.][a-z]*-[a-z]*$")
      (reg-match "^[0-9][0-9][0-9]-$" "^[0-9][0-9][0-9]-[0-9]*$" "^[0-9][0-9][0-9]-[0-9]*-[0-9]*$")
      (reg-match "^[Oo]'[A-Za-z]*$")
      (reg-match "^([Ee]|[Ee]x|[Ee]co|[Nn]on|[Nn]eo|[Aa]nti|[Pp]re|[Pp]ost|[Pp]ro|[Pp]seudo|[Cc]o|[Cc]ounter)-[A-Za-z]*$"
                 "^([Ss]emi|[Ss]ub|[Mm]id|[Mm]is|[Mm]ini|[Mm]ulti|[Rr]e|[Uu]n|[Uu]ni|[Uu]ltra|[Oo]ver|[Vv]ice)-[A-Za-z]*$"
                 "^([Ii]nter|[Bb]i|[Bb]io|[Qq]uasi|[Tt]ri|[Dd]e)-[A-Za-z]*$")))
