; Words that the lexicon does not have, numbers, names, compounds. These rules come after those of
; inflection.lsp, which may have left a word without any reading, and before those of movement.lsp.

; Behind such a sign a capital tells as little as at the start of the sentence.
(defun starts-anew () (in ("(" "\"" ":" "." "-" "!" "?" ";" "..." ">" "<" "*")))

(def-rules english-rules
  ; Negated auxiliaries are cut before the 't: "won" is one only in front of it.
  (contracted (:act-on-all-matches)
    (lexitem (and (att (contain ((node Aux))))
                  (surform (in (don doesn didn won couldn wouldn shouldn mustn haven hasn hadn isn aren wasn weren)))))
    (if (followed-by-word (pred (in ("'t" "n't"))))
        (delete-if (low) (high) (pred (not (att (contain ((node Aux)))))))
        (delete (litem))))

  (let-us (seq (word (in (let))) (word (in ("'s" s))))
    (prog (delete-if (high) (high) (pred (t)))
          (assert (make-lexitem (high) (high) (avm (avm (pron (agr p1) (case acc))))))))

  ; A line of nothing but signs: ***, ----, :-)
  (signs (whole-sentence)
    (if (not (comp (matching-word) (exist-word " " (reg-match "[A-Za-z0-9\128-\255]"))))
        (assert (make-lexitem (int 1) (high) (avm (avm ((cat j) (node Sign))))))))
  ; Addresses of the web and of mail are names, files are things. Half past seven PM.
  (address (word (reg-match "^<?(https?:|www[.])" "@[A-Za-z0-9]"
          "^[A-Za-z0-9][-A-Za-z0-9.]*[.](com|org|net|edu|gov|uk|de|us)$"))
    (prog (delete-if (low) (high) (pred (t)))
          (assert (make-lexitem (low) (high) (avm (avm (name sg)))))))
  (file (word (reg-match "^[A-Za-z0-9].*[.](pdf|doc|docx|xls|xlsx|ppt|txt|htm|html|jpg|jpeg|gif|png|zip|exe|mp3|rtf)$"))
    (prog (delete-if (low) (high) (pred (t)))
          (assert (make-lexitem (low) (high) (avm (avm (mass sg)))))))
  (half-day (seq (word (reg-match "^[0-9][0-9:.]*$")) (word (in (am pm a.m. p.m. am. pm.))))
    (prog (delete-if (high) (high) (pred (t)))
          (assert (make-lexitem (high) (high) (avm (avm (mass sg -proper +time)))))))

  ; sooo, veryyy
  (emphatic (& (not-in-lexicon) (word (reg-match "^[Ss][Oo][Oo]+$" "^[Vv][Ee][Rr][Yy][Yy]+$")))
    (assert (make-lexitem (low) (high) (avm (avm (adv +deg))))))

  ; the 1990s, the 60s
  (decade (word (reg-match "^'?[0-9]*[0-9]0'?s$"))
    (prog (delete-if (low) (high) (pred (t)))
          (assert (make-lexitem (low) (high) (avm (avm (plural +time)))))))
  ; over a million, around 40
  (about-number
    (seq (lexitem (and (att (contain ((node Adv) +deg))) (surform (in (over around under nearly about almost)))))
                     (lexitem (att (contain ((node Num))))))
    (add-weight (comp ($ 1) (litem)) (int -3)))
  ; Years tell when: in 1990.
  (year (& (not-in-lexicon) (word (reg-match "^(1[0-9]|20)[0-9][0-9]$")))
    (assert (make-lexitem (low) (high) (avm (avm (num +time))))))
  ; 12, 3.50, $5, 10:30, 1990s
  (number (& (not-in-lexicon) (word (reg-match "^[-+$#%]?[$]?[0-9][0-9.,:/]*[A-Za-z%+]?[A-Za-z]?[+]?$"
          "^(\194\163|\226\130\172)[0-9][0-9.,]*[A-Za-z]?$")))
    (assert (make-lexitem (low) (high) (avm (avm (num))))))

  ; In a heading most words have capitals, which tell nothing.
  (heading (whole-sentence)
    (if (comp (matching-word)
              (exist-word " " (and (reg-match "^[a-z][a-z]")
                                   (not (in (of the and in for to an on at by with or from as is de la))))))
                                   (comp (analyzer) (set-mixed-case 1)) (comp (analyzer) (set-mixed-case 0))))

  ; al-Sadr, el Barak
  (arab-name (seq (word (in :case-sensitive (al el ul bin ibn Al El Bin))) (? -) (word (reg-match "^[A-Z]")))
    (prog (delete-if (high) (high) (pred (t)))
          (delete-if (low) (low) (pred (t)))
          (assert (make-lexitem (low) (low) (avm (avm (person sg)))))
          (assert (make-lexitem (high) (high) (avm (avm (person sg)))))))
  ; President Bush, Park Avenue: at the start of a sentence two capitals make a name.
  (first-name (seq (^) (word (reg-match "^[A-Z][a-z]")) (word (reg-match "^[A-Z][a-z]")))
    (if (and (comp (analyzer) (is-mixed-case))
             (exist-lexitem (int 1) (int 1) (pred (att (and (contain ((node NN))) (not (contain (+proper)))))))
             (not (exist-lexitem (int 1) (int 1) (pred (att (or (not (contain ((cat n)))) (contain (+human))))))))
        (prog (assert (make-lexitem (int 1) (int 1) (avm (avm (name sg)))))
              (delete-if (int 1) (int 1) (pred (att (not (contain (+proper)))))))))
  ; A capital inside the sentence makes a name, whatever noun the word may be.
  (name (word (reg-match "^[A-Z][A-Za-z.]"))
    (if (and (int-gt (low) (int 1)) (comp (analyzer) (is-mixed-case)) (not (preceded-by-word (pred (starts-anew)))))
        (cond ((exist-lexitem (low) (high) (pred (att (or (contain (+cap)) (contain (-proper)))))) (nil))
              ((exist-lexitem (low) (high) (pred (att (contain (+human (agr p3)))))) (nil))
              ((exist-lexitem (low) (high) (pred (att (contain (+human)))))
               (assert (make-lexitem (low) (high) (avm (avm (person sg))))))
              ((exist-lexitem (low) (high) (pred (att (and (contain ((node NN))) (not (contain (+proper)))))))
               (if (exist-lexitem (low) (high) (pred (att (contain ((node NN) (agr s3))))))
                   (assert (make-lexitem (low) (high) (avm (avm (name sg)))))
                   (assert (make-lexitem (low) (high) (avm (avm (name plu)))))))
              ((exist-lexitem (low) (high) (pred (att (contain (+proper))))) (nil))
              ((exist-lexitem (low) (high) (pred (att (or (contain ((cat v)))
                                                        (and (contain ((cat a))) (not (defined (node))))))))
               (assert (add-weight (make-lexitem (low) (high) (avm (avm (name sg)))) (int 1))))
              ((exist-lexitem (low) (high) (pred (t))) (nil))
              ((t) (assert (make-lexitem (low) (high) (avm (avm (person sg)))))))))
  (no-common-noun (:act-on-all-matches)
    (lexitem (and (att (contain ((node NN)))) (att (not (contain (+proper)))) (surform (reg-match "^[A-Z][A-Za-z.]"))
                  (not (surform (reg-match "^[A-Z][A-Z]+s?$")))))
    (if (and (int-gt (low) (int 1)) (comp (analyzer) (is-mixed-case)) (not (preceded-by-word (pred (starts-anew)))))
        (add-weight (litem) (int 3))))

  ; Small words inside a name: Ludwig van Beethoven.
  (long-name (seq (word (reg-match "^[A-Z]")) (word (in (van von der de da di del la bin al)))
                  (* (word (in (der den la las los)))) (word (reg-match "^[A-Z]")))
    (prog (delete-smaller (low) (high))
          (assert (make-lexitem (low) (high) (avm (avm (name sg)))))))

  ; At the start a capital tells nothing: Best wishes.
  (start-name (:act-on-all-matches) (lexitem (att (contain (+proper))))
    (if (and (or (int-eq (low) (int 1)) (preceded-by-word (pred (starts-anew))))
             (exist-lexitem (low) (high) (pred (att (not (or (contain ((cat n))) (contain ((cat v)))))))))
        (add-weight (litem) (int 2))))

  ; ... and a name has one, unless it is all that there is.
  (no-name (:act-on-all-matches) (lexitem (and (att (contain (+proper))) (surform (reg-match "^[a-z]"))))
    (if (exist-lexitem (low) (high) (pred (att (not (contain (+proper))))))
        (delete (litem))))

  ; By ending.
  (unknown-ly (& (not-in-lexicon) (word (reg-match "^[a-z].*..ly$")))
    (assert (make-lexitem (low) (high) (avm (avm (adv))))))
  (unknown-ing (& (not-in-lexicon) (word (reg-match "^[a-z].*...ing$")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (vo (vform ing))))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (mass sg)))) (int 1)))))
  (unknown-ed (& (not-in-lexicon) (word (reg-match "^[a-z].*...ed$")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (vo ed)))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (adj)))) (int 1)))))
  (unknown-s (& (not-in-lexicon) (word (reg-match "^[a-z].*[^su]s$")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (plural)))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (vo (vform pres) sg)))) (int 2)))))
  (unknown-adj (& (not-in-lexicon) (word (reg-match "^(non|anti|pro|over|under)[a-z][a-z][a-z]"
                                           "^[a-z].*(able|ible|ful|less|ous|ive|ical|ish|ic|al|ary|esque)$")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (adj)))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (mass sg)))) (int 2)))))
  (unknown-noun (& (not-in-lexicon)
                   (word (reg-match "^[a-z].*(tion|sion|ness|ment|ity|ism|ist|ship|ance|ence|hood|dom|logy|er|or)$")))
    (assert (make-lexitem (low) (high) (avm (avm (mass sg))))))
  (unknown-name (& (not-in-lexicon) (word (reg-match "^[A-Z]")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (person sg)))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (mass sg)))) (int 2)))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (adj)))) (int 3)))))
  (capital-adjective (:act-on-all-matches) (lexitem (att (contain (+proper))))
    (if (exist-lexitem (low) (high) (pred (att (contain (+cap))))) (add-weight (litem) (int 1))))
  (unknown (& (not-in-lexicon) (word (reg-match "^[a-z]")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (mass sg)))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (adj)))) (int 2)))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (vo non3 (vform base pres))))) (int 3)))))

  ; The World Health Organization (WHO): the name and its abbreviation are one item.
  (abbreviation (seq "(" (word (reg-match "^[A-Z][A-Z]+$")) ")")
    (abbrev-def (avm (avm (name sg)))))

  ; twenty-one
  (numbers (seq (lexitem (att (contain ((node Num))))) - (lexitem (att (contain ((node Num))))))
    (prog (delete-smaller (low) (high))
          (assert (make-lexitem (low) (high) (avm (avm (num plu)))))))

  ; A hyphenated compound is looked up whole; what is not found is an adjective or a noun.
  (hyphen (seq (word (t)) (+ (seq - (word (t)))))
    (if (not (or (exist-lexitem (low) (high) (pred (t))) (comp (matching-word) (reg-match " " "^[^A-Za-z0-9]"))))
        (prog
          (look-up (low) (high) (str))
          (if (exist-lexitem (low) (high) (pred (t)))
              (delete-smaller (low) (high))
              (prog
                (delete-smaller (low) (high))
                (if (comp (matching-word) (reg-match "^[A-Za-z]*-[A-Z]"))
                    (assert (make-lexitem (low) (high) (avm (avm (name sg))))))
                (assert (make-lexitem (low) (high) (avm (avm (adj)))))
                (assert (make-lexitem (low) (high) (avm (avm (noun sg)))))))))))
