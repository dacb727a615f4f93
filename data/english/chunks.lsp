; Base noun phrases, verb groups and the small stretches between them, each sentence printed as a line such
; as "[The old man]NP [has seen]VG [the dogs]NP [in]PP [the garden]NP [.]SKIP". Load this behind the grammar,
; and switch it on:
;
;   (load english/chunks.lsp)
;   (set-deps-modifier english-parser chunks)
;
; The rules mark the root of each chunk with the property `ckroot`, whose text is the label; a word falls
; into the chunk of the nearest marked node above it. Labels: NP, VG, PP (a preposition), ADJP and ADVP (those
; that stand by themselves), MARK (that, because, but).

(define-attribute ckroot StrValue)

(defun ck-is-aux () (cat (str= Aux)))
(defun ck-is-verb () (cat (reg-match "^V$|^V_")))
(defun ck-is-noun () (cat (in (NN NB Pro Num Det RelPro))))
(defun ck-is-marked () (get-prop ckroot))
; A part of the noun phrase around it.
(defun ck-is-inside () (rel (in (det predet num nn gen case mod))))
(defun ck-has-aux () (exist-child (ck-is-aux)))
(defun ck-is-degree () (node2attvec (contain (+deg))))
; Behind the subject or an auxiliary of its verb.
(declare-var ck-place int)
(defun ck-follows-group ()
  (and (setq ck-place (depnode-pos))
       (comp (parent) (and (ck-is-verb)
                           (exist-child (and (or (rel (str= subj)) (ck-is-aux))
                                             (int-gt (get-val ck-place) (depnode-pos))))))))

(def-tree-rules chunks

  (down :name noun-phrase
        :comments "A noun or pronoun with what stands before it; what follows has chunks of its own."
        (node (and (ck-is-noun) (not (ck-is-inside)) (not (rel (str= conj)))))
        (match (set-prop (ckroot NP))))

  (down :name joined-noun-phrase
        :comments "boys and girls: one chunk each; but: two or three books."
        (node (and (ck-is-noun) (rel (str= conj)) (comp (parent) (ck-is-marked))))
        (match (set-prop (ckroot NP))))

  (down :name verb-group
        :comments "A verb with its auxiliaries and what stands between them; but: a stolen car."
        (node (and (ck-is-verb) (not (and (rel (str= mod)) (before-parent)))))
        (match (set-prop (ckroot VG))))

  (down :name preposition
        :comments "A preposition without its noun phrase."
        (node (cat (reg-match "^P$|^P_|^N_P$")))
        (match (set-prop (ckroot PP))))

  (down :name adjective-phrase
        :comments "An adjective that does not stand before its noun."
        (node (and (cat (reg-match "^A$|^A_"))
                   (not (and (rel (in (mod conj))) (or (comp (parent) (cat (reg-match "^A$|^A_")))
                                                       (and (before-parent) (comp (parent) (ck-is-noun))))))))
        (match (set-prop (ckroot ADJP))))

  (down :name adverb-phrase
        :comments "An adverb of the clause: quietly, usually, where."
        (node (and (cat (str= Adv)) (or (not (comp (parent) (cat))) (comp (parent) (or (ck-is-verb) (ck-has-aux))))
                   (not (rel (str= conj))) (not (ck-is-degree))))
        (match (set-prop (ckroot ADVP))))

  (down :name adverb-in-verb-group
        :comments "has never seen, often visits: behind the subject or an auxiliary, and before the verb."
        (node (and (cat (str= Adv)) (ck-is-marked) (before-parent) (ck-follows-group)
                   (not (word-after (str= ",")))))
        (match (del-prop ckroot)))

  (down :name mark
        :comments "Words that open a clause."
        (node (cat (in (Comp Sub Conn))))
        (match (set-prop (ckroot MARK))))

  (down :name copula-group
        :comments "has not been tired: the auxiliaries of what is no verb are a verb group of their own, under
 the first of them while the chunks are printed."
        (tree (not (or (ck-is-verb) (ck-is-aux))) (node aux (ck-is-aux)))
        (prog (match 1 (set-prop (ckroot VG)))
              (match (all-children (prog (if (and (or (ck-is-aux) (cat (str= Neg))) (not (eq (ident) (get-val aux))))
                                             (reattach-node (get-val aux)))
                                         (t))))))

  (up :name print
      :comments "One line a sentence."
      (node (not (parent)))
      (get-chunk))

  (up :name copula-restored
      :comments "What copula-group moved goes back."
      (node (comp (parent) (ck-is-aux)))
      (match (reattach-node (comp (parent) (parent))))))
