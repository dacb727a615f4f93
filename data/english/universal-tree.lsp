; What trees of Universal Dependencies have otherwise than those of content-head.lsp, which these rules follow:
; the shape of names, numbers, existential and impersonal clauses. Loaded by style-content.lsp.

(defun is-name-part () (and (cat (str= NN)) (node2attvec (contain (+proper)))))
; Nothing but a name: no noun that a name may be made of (Post, City).
(defun is-plain-name () (or (node2attvec (contain (+proper +human))) (node2word (reg-match "^[A-Z][.]$"))))
(defun is-title ()
  (or (node2attvec (contain (+title)))
      (node2root (in (president senator congressman congresswoman governor mayor minister chancellor professor doctor
                      judge justice captain general colonel major sergeant lieutenant commander admiral inspector
                      officer
                      detective father sister brother pope bishop cardinal reverend rabbi king queen prince princess
                      lord lady sir sheikh sheik ayatollah imam uncle aunt coach chairman chairwoman leader member
                      adviser
                      advisor administrator cleric spokesman spokeswoman director manager analyst author writer singer
                      actor actress reporter journalist lawyer attorney scientist historian dictator premier ambassador
                      commissioner candidate founder owner editor secretary)))))
(defun is-it () (node2word (str= it)))
(defun is-there () (and (cat (str= Pro)) (node2word (str= there))))

; Tops of a sentence that fell in pieces stand side by side under a node without a word.
(defun is-top () (and (cat) (parent) (not (comp (parent) (or (cat) (node2word))))))
(defun is-clause () (or (cat (reg-match "^V$|^V_")) (exist-child (rel (in (subj nsubj expl cop))))))
(defun main-piece () (or (exist-child (is-clause)) (exist-child (cat (reg-match "^N|^A|^Pro|^P"))) (exist-child (cat))))

(def-tree-rules content-head

  (up :name there-is
      :comments "There is a problem: `be` is the predicate, the noun its subject."
      (tree noun (t) (node there (and (rel (str= subj)) (is-there))) (node be (rel (str= cop))))
      (prog (set-rel (get-val there) (str expl))
            (match (all-children (prog (if (or (and (rel (str= conj)) (exist-child (rel (in (subj nsubj)))))
                                               (not (or (rel (in
                    (det predet num gen mod amod nn lex-mod rel vrel conj appo case
                                                                 comp acl nmod)))
                                                        (eq (ident) (get-val be))))
                                               (and (rel (str= mod)) (before-parent)
                                                    (or (exist-child (rel (str= case))) (cat (str= Adv)))))
                                           (reattach-node (get-val be)))
                                       (t))))
            (set-rel (get-val be) (match (rel)))
            (set-rel (match) (str nsubj))
            (invert-dep (get-val be))))

  (up :name for-him-to-go
      :comments "for him to go: `for` marks the clause, whose subject has it."
      (tree clause (is-verb) (tree subject (and (rel (str= subj)) (cat))
                               (node for (and (rel (in (case mark))) (node2word (in (for)))))))
      (prog (set-rel (get-val for) (str mark))
            (set-rel (get-val subject) (str nsubj))
            (match 1 1 (reattach-node (get-val clause)))))

  (up :name is-that
      :comments "All I say is that you are the best: `is` stands before a marked clause."
      (treeq (not (is-verb)) (node (and (is-be) (rel (str= aux)))) (node (rel (str= mark))))
      (set-rel (match 1) (str cop)))

  (up :name about-finding
      :comments "It is about finding it: `be` before a marked verb is a copula."
      (tree (is-verb) (node be (and (is-be) (rel (str= aux)))) (node (and (is-prep) (rel (str= mark)))))
      (set-rel (get-val be) (str cop)))

  (up :name it-is-clear
      :comments "It is clear that he knows, it is hard to say: the clause is the subject."
      (tree (and (or (of-adjective) (cat (str= NN))) (exist-child (rel (str= cop))))
            (node it (and (rel (str= subj)) (is-it)))
            (node clause (rel (str= comp))))
      (prog (set-rel (get-val it) (str expl))
            (set-rel (get-val clause) (str csubj))))

  (up :name it-seems
      :comments "It seems that he knows."
      (tree (node2root (in (seem appear turn happen)))
            (node it (and (rel (str= subj)) (is-it)))
            (node clause (and (rel (in (comp obj sub))) (of-verb))))
      (set-rel (get-val it) (str expl)))

  (up :name told-him
      :comments "told him that he left: who hears it is the indirect object."
      (tree (node2root (in (tell ask show teach promise assure inform remind warn)))
            (node hearer (rel (str= obj)))
            (node (rel (in (comp obj pred iobj)))))
      (if (not (eq (get-val hearer) (match 2))) (set-rel (get-val hearer) (str iobj))))

  (up :name told-him-alone
      :comments "Don't tell him, please notify the sender: what is said may stay away."
      (tree (and (is-verb) (node2root (in (tell notify instruct assure remind))))
            (node hearer (and (rel (str= obj)) (cat) (not (node2word (in
                    (it that this truth story stories lie lies time tale
                                                                    difference thing things joke what)))))))
      (set-rel (get-val hearer) (str iobj)))

  (up :name title
      :comments "Mr. Brown, President Bush: what a person is called by describes the name."
      (tree (is-plain-name) (node (and (rel (str= nn)) (is-title))))
      (set-rel (match 1) (str nmod)))

  (up :name flat-name
      :comments "Scott Neal, Ludwig van Beethoven: names of people hang on their first part."
      (tree last (is-plain-name) (node first (and (rel (str= nn)) (is-plain-name) (not (is-title)) (before-parent))))
      (prog (set-rel (get-val first) (match (rel)))
            (set-rel (match) (str flat))
            (match (all-children (prog (if (not (rel (str= flat))) (reattach-node (get-val first))) (t))))
            (invert-dep (get-val first))))

  (up :name list-of-names
      :comments "Ann Low, Bob Hay, Tom Day: names in a row are joined like conjuncts."
      (path (node first (is-plain-name)) (node (and (rel (str= appo)) (is-plain-name) (word-before (str= ",")))))
      (prog (set-rel (match 1) (str conj))
            (match 1 (all-children (prog (if (is-conjunct) (reattach-node (get-val first))) (t))))))

  (up :name place-name
      :comments "San Francisco, Palo Alto: foreign names of places hang on their first part."
      (tree last (is-proper) (node first (and (rel (str= lex-mod)) (before-parent)
                                              (node2word (in
                                                      (san santa los las el la palo rio costa buenos puerto sao saint
                                                              tel abu ras sri kuala hong))))))
      (prog (set-rel (get-val first) (match (rel)))
            (set-rel (match) (str flat))
            (match (all-children (prog (if (not (rel (str= flat))) (reattach-node (get-val first))) (t))))
            (invert-dep (get-val first))))

  (up :name half-day
      :comments "at 7 pm: the number is the head."
      (tree half (node2word (in (am pm a.m. p.m.))) (node hour (and (rel (in (num nn))) (before-parent))))
      (prog (match (all-children (prog (if (not (eq (ident) (get-val hour))) (reattach-node (get-val hour))) (t))))
            (set-rel (get-val hour) (match (rel)))
            (set-rel (match) (str nmod))
            (invert-dep (get-val hour))))

  (up :name month-and-day
      :comments "on April 3, on May 26, 1955: the day is the head."
      (tree month (node2attvec (contain (+proper +time)))
                  (node day (and (rel (str= num)) (node2word (reg-match "^[0-9][0-9]?(st|nd|rd|th)?[.]?$")))))
      (prog (match (all-children (prog (if (not (eq (ident) (get-val day))) (reattach-node (get-val day))) (t))))
            (set-rel (get-val day) (match (rel)))
            (set-rel (match) (str nmod))
            (invert-dep (get-val day))))

  (up :name as-well
      :comments "as well: fixed rows have their first word for a head."
      (tree well (and (cat (str= Adv)) (node2word (in ("as well" "more than" "less than"))))
            (node as (and (rel (str= lex-mod)) (node2word (in (as more less))))))
      (prog (set-rel (get-val as) (str advmod)) (set-rel (match) (str fixed)) (invert-dep (get-val as))))

  (up :name out-of
      :comments "out of the house: two prepositions."
      (tree noun (t) (tree (and (rel (str= case)) (node2word (in ("out of" "up to")))) (node of (rel (str= lex-mod)))))
      (prog (set-rel (get-val of) (str case)) (match 1 1 (reattach-node (get-val noun)))))

  (up :name ago
      :comments "two years ago."
      (tree (node2word (in (ago))) (node (of-noun)))
      (set-rel (match 1) (str obl)))

  (up :name he-said
      :comments "I am tired, he said: what is said depends on the verb that tells so."
      (tree quote (t) (node said (and (rel (str= report)) (node2root (in
              (say ask reply answer cry shout whisper explain add
                                                                     write comment tell report note warn declare announce
                                                                     remark state argue conclude insist admit claim
                                                                     suggest))))))
      (prog (set-rel (get-val said) (match (rel)))
            (set-rel (match) (str ccomp))
            (invert-dep (get-val said))))

  (up :name a-few
      :comments "a few years: the article belongs to the noun."
      (tree noun (t) (tree (and (rel (in (det num))) (node2word (in (few little couple)))) (node a (rel (str= det)))))
      (match 1 1 (reattach-node (get-val noun))))

  (up :name just-too-good
      :comments "just too good: both belong to the adjective."
      (tree adjective (not (cat (str= Adv))) (tree (and (cat (str= Adv)) (rel (str= mod)))
                                                   (node (and (rel (str= mod)) (node2word (in
                                                           (just only simply also really)))))))
      (match 1 1 (reattach-node (get-val adjective))))

  (up :name date-and-hour
      :comments "02/13/2001 08:02 PM: the hour depends on the day."
      (tree hour (node2word (reg-match "^[0-9]*:[0-9:]*$"))
                 (node day (and (before-parent) (node2word (reg-match "^[0-9][0-9]?[/.-][0-9][0-9]?[/.-][0-9]*$")))))
      (prog (set-rel (get-val day) (match (rel)))
            (set-rel (match) (str list))
            (invert-dep (get-val day))))

  (up :name heading-of-clause
      :comments "PS -- I am here: of pieces in a row a clause is the root."
      (tree first (and (cat) (not (comp (parent) (cat))) (not (is-clause)) (not (exist-child (rel (str= mark)))))
            (node second (and (rel (str= parataxis)) (is-clause))))
      (prog (set-rel (get-val second) (match (rel)))
            (set-rel (match) (str parataxis))
            (match (all-children (prog (if (and (rel (in (parataxis discourse))) (not (eq (ident) (get-val second))))
                                           (reattach-node (get-val second)))
                                       (t))))
            (invert-dep (get-val second))))

  (down :name pieces
      :comments "A sentence in pieces: all go on from the first one that is a clause, else from the first."
      (node (and (is-top) (not (eq (ident) (comp (parent) (main-piece))))))
      (set-rel (match) (str parataxis))))
