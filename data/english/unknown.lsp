; Words that the lexicon does not have, numbers, names, compounds. These rules come after those of
; inflection.lsp, which may have left a word without any reading, and before those of movement.lsp.

(def-rules english-rules
  ; Negated auxiliaries are cut before the 't: "won" is one only in front of it.
  (contracted (:act-on-all-matches)
    (lexitem (and (att (contain ((node Aux))))
                  (surform (in (don doesn didn won couldn wouldn shouldn mustn haven hasn hadn isn aren wasn weren)))))
    (if (followed-by-word (pred (in ("'t" "n't"))))
        (delete-if (low) (high) (pred (not (att (contain ((node Aux)))))))
        (delete (litem))))

  (let-us (word-seq let "'s") (assert (make-lexitem (low) (high) (avm (avm (modal (own base)))))))

  ; Years tell when: in 1990.
  (year (& (not-in-lexicon) (word (reg-match "^(1[0-9]|20)[0-9][0-9]$")))
    (assert (make-lexitem (low) (high) (avm (avm (num +time))))))
  ; 12, 3.50, $5, 10:30, 1990s
  (number (& (not-in-lexicon) (word (reg-match "^[$]?[0-9][0-9.,:/]*(th|st|nd|rd|s|m|km|kg|%|am|pm)?$")))
    (assert (make-lexitem (low) (high) (avm (avm (num))))))

  ; A capital inside the sentence makes a name, whatever else the word may be.
  (name (word (reg-match "^[A-Z][A-Za-z.]"))
    (if (int-gt (low) (int 1))
        (if (not (exist-lexitem (low) (high) (pred (att (contain (+proper))))))
            (assert (make-lexitem (low) (high) (avm (avm (name sg))))))))

  ; Small words inside a name: Ludwig van Beethoven.
  (long-name (seq (word (reg-match "^[A-Z]")) (word (in (van von der de da di del la bin al)))
                  (* (word (in (der den la las los)))) (word (reg-match "^[A-Z]")))
    (prog (delete-smaller (low) (high))
          (assert (make-lexitem (low) (high) (avm (avm (name sg)))))))

  ; ... and a name has one, unless it is all that there is.
  (no-name (:act-on-all-matches) (lexitem (and (att (contain (+proper))) (surform (reg-match "^[a-z]"))))
    (if (exist-lexitem (low) (high) (pred (att (not (contain (+proper))))))
        (delete (litem))))

  ; By ending.
  (unknown-ly (& (not-in-lexicon) (word (reg-match "..ly$")))
    (assert (make-lexitem (low) (high) (avm (avm (adv))))))
  (unknown-ing (& (not-in-lexicon) (word (reg-match "...ing$")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (vo (vform ing))))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (mass sg)))) (int 1)))))
  (unknown-ed (& (not-in-lexicon) (word (reg-match "...ed$")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (vo ed)))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (adj)))) (int 1)))))
  (unknown-s (& (not-in-lexicon) (word (reg-match "^[a-z].*[^su]s$")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (plural)))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (vo (vform pres) sg)))) (int 2)))))
  (unknown-adj (& (not-in-lexicon) (word (reg-match "(able|ible|ful|less|ous|ive|ical|ish|ic|al|ary|esque)$")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (adj)))))
          (assert (add-weight (make-lexitem (low) (high) (avm (avm (mass sg)))) (int 2)))))
  (unknown-noun (& (not-in-lexicon)
                   (word (reg-match "(tion|sion|ness|ment|ity|ism|ist|ship|ance|ence|hood|dom|logy|er|or)$")))
    (assert (make-lexitem (low) (high) (avm (avm (mass sg))))))
  (unknown-name (& (not-in-lexicon) (word (reg-match "^[A-Z]")))
    (prog (assert (make-lexitem (low) (high) (avm (avm (name sg)))))
          (if (int-eq (low) (int 1))
              (assert (add-weight (make-lexitem (low) (high) (avm (avm (mass sg)))) (int 1))))))
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
    (if (not (exist-lexitem (low) (high) (pred (t))) (comp (matching-word) (reg-match " ")))
        (prog
          (look-up (low) (high) (str))
          (if (exist-lexitem (low) (high) (pred (t)))
              (delete-smaller (low) (high))
              (prog
                (delete-smaller (low) (high))
                (assert (make-lexitem (low) (high) (avm (avm (adj)))))
                (assert (make-lexitem (low) (high) (avm (avm (noun sg)))))))))))
