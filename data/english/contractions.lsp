; Words that English writes as one: don't, it's, children's.

; What such a token is as a word of its own. Letters of it that the token lacks come over from the word before: the
; sentence tokenizer cuts at the apostrophe, is|n't at isn|'t. Who writes a tree for others asks with the token in
; small letters.
(defun clitic ()
  (cond ((in ("'t")) (str "n't"))
        ((in ("n't" "'s" "'m" "'re" "'ve" "'ll" "'d")) (ident))
        ((in (nt s m re ve ll not na ta lot)) (ident))))

; Base forms of what is left of the words.
(defun universal-lemma ()
  (cond ((and (cat (str= Neg)) (node2word (in ("'t" "n't" nt)))) (str not))
        ((cat (in (Pro Det)))
         (cond ((node2word (in (i))) (str I)) ((node2word (in (me))) (str I))
               ((node2word (in (us))) (str we)) ((node2word (in (him))) (str he)) ((node2word (in (them))) (str they))
               ((node2word (in (an))) (str a)) ((node2word (in (these))) (str this)) ((node2word (in (those)))
                       (str that))
               ((and (node2word (in (her))) (not (rel (str= det)))) (str she))))
        ((and (of-adjective) (node2word (in (better best)))) (str good))
        ((and (cat (str= Adv)) (node2word (in (better best)))) (str well))
        ((and (of-adjective) (node2word (in (worse worst)))) (str bad))
        ((and (cat (str= NN)) (not (is-proper)) (node2root (reg-match "^[a-z]*men$")))
          (node2root (reg-sub "men$" "man")))
        ((and (cat (str= NN)) (node2root (in (children)))) (str child))
        ; New York, at least: the last word is the head of a row; because of, even if: the first
        ((and (cat (in (NN NB Pro Adv))) (node2root (reg-match " "))) (node2root (last-word)))
        ((and (or (of-preposition) (cat (in (Sub Comp)))) (node2root (reg-match " "))) (node2root (reg-sub " .*$" "")))
        ((cat (str= Aux))
         (cond ((node2word (in ("'m" "'re" m re am is are was were been being isn aren wasn weren))) (str be))
               ((and (node2word (in ("'s" s))) (node2attvec (strict-unifiable (vform) ((vform prd))))) (str be))
               ((node2word (in ("'ve" ve "'s" has had having haven hasn hadn))) (str have))
               ((node2word (in (gets got gotten getting))) (str get))
               ((node2word (in (does did don doesn didn))) (str do))
               ((node2word (in ("'ll" ll won wo))) (str will))
               ((node2word (in (ca))) (str can))
               ((node2word (in (couldn))) (str could))
               ((node2word (in (wouldn))) (str would))
               ((node2word (in (shouldn))) (str should))
               ((node2word (in (mustn))) (str must))))))
