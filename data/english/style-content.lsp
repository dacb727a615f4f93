; The style in which content words are heads, with the relations of Universal Dependencies.
(load english/content-head.lsp english/universal-tree.lsp)
(set-deps-modifier english-parser content-head)

(defun under-noun () (comp (parent) (of-noun)))
; Whose parent is what a form of `be` makes a predicate: a clause, although its head is a noun.
(defun under-predicate () (comp (parent) (or (exist-child (rel (in (cop subj nsubj expl)))) (of-verb))))
(defun in-nominal () (and (under-noun) (not (and (under-predicate) (not (before-parent)) (not (rel (str= mod)))))))

;  a 15-year plan, a two-year contract
(defun of-measure ()
  (and
    (node2word
      (reg-match
        "-(year|month|week|day|hour|minute|second|mile|foot|inch|meter|metre|pound|ton|page|man|bedroom|star|point|part|time|percent|dollar|term)$"))
       (or (node2word (reg-match "^[0-9]")) (exist-child (and (rel (in (lex-mod nummod))) (node2word (number-word)))))))

(defun modifier-relation ()
  (cond ((cat (str= Neg)) (str advmod))
        ((cat (str= Adv)) (cond ((is-phrase-with-preposition) (if (under-noun) (str nmod) (str obl)))
                                ((interjection) (if (node2word (in (well))) (str advmod) (str discourse)))
                                ((and (particle) (comp (parent) (of-verb)) (not (before-parent)) (not (of-motion))
                                      (not (exist-child (rel (str= case)))))
                                 (str compound))
                                ((t) (str advmod))))
        ((exist-child (rel (str= case))) (if (under-noun) (str nmod) (str obl)))
        ((node2word (in (else))) (str advmod))
        ((of-adjective) (if (under-noun) (if (of-measure) (str compound) (str amod)) (str advcl)))
        ((of-verb) (cond ((not (under-noun)) (str advcl)) ((before-parent) (str amod)) ((t) (str acl))))
        ((of-preposition) (cond ((node2word (in (ago))) (str advmod))
                                ((not (node2word (in (up out off on in down over through)))) (if (under-noun)
                                        (str advmod) (str obl)))
                                ((of-motion) (str advmod))
                                ((t) (str compound))))
        ((cat (str= Num)) (if (under-noun) (str nummod) (str obl)))
        ((of-noun) (if (under-noun) (str nmod) (str obl)))
        ((cat (str= Aux)) (str advcl))
        ((t) (str dep))))

; Behind a verb or an adjective: a clause that has its subject, or one that has not.
(defun clause-relation ()
  (cond ((not (of-verb)) (if (exist-child (rel (in (subj nsubj expl)))) (str ccomp) (str xcomp)))
        ((exist-child (rel (in (subj expl csubj)))) (str ccomp))
        ((t) (str xcomp))))

; start cleaning, going to stay: no free adjunct of such a verb.
(defun without-clause ()
  (and (of-verb) (not (before-parent)) (not (word-before (str= ",")))
       (or (and (rel (str= purpose))
                (comp (parent) (node2word (in
                        (going want wants wanted need needs needed try tries tried trying help helps helped
                                               continue continues continued like love hate determined))))
                (exist-child (node2word (in (to)))))
           (and (rel (str= sub)) (node2word (reg-match "ing$")) (not (exist-child (rel (in (mark case)))))
                (comp (parent) (node2root (in
                        (start stop keep try begin continue enjoy finish quit mind anticipate avoid
                                               consider suggest recommend love like hate prefer admit deny))))))))

(defun number-relation ()
  (cond ((not (under-noun)) (str obl))
        ((and (not (before-parent)) (node2word (reg-match "^(19|20)[0-9][0-9]$"))) (str nmod))
        ((comp (parent) (cat (str= Num))) (str compound))
        ((comp (parent) (node2word (in ("$" "\194\163" "\226\130\172" "#")))) (str nummod))
        ((or (quantity) (and (before-parent) (node2word (reg-match "^[0-9]+(st|nd|rd|th)$")))) (str amod))
        ((node2word (reg-match "^(19|20)[0-9][0-9]$")) (if (before-parent) (str compound) (str nmod)))
        ((before-parent) (str nummod))
        ((comp (parent) (node2attvec (contain (+time)))) (str nummod))
        ((t) (str flat))))

(defun determiner-relation ()
  (cond ((cat (str= Adv)) (str advmod))
        ((possessive) (str nmod))
        ((or (quantity) (node2word (in (such)))) (if (rel (str= predet)) (str det) (str amod)))
        ((t) (str det))))

; A part of a word that the lexicon writes apart.
(defun part-relation ()
  (cond ((node2word (in ("&"))) (str cc))
        ((node2word (reg-match "^[^A-Za-z0-9\128-\255]+$")) (str punct))
        ((comp (parent) (of-preposition)) (str fixed))
        ((node2word (number-word)) (str nummod))
        ((comp (parent) (node2word (in ("more than" "less than")))) (str fixed))
        ((node2word (reg-match "^[A-Z][a-z]*(ean|ian|can|ish|ese|mic)$")) (str amod))
        ((comp (parent) (cat (in (Sub Comp Aux)))) (str fixed))
        ((comp (parent) (of-verb)) (if (or (of-motion) (node2word (in (back away together ahead)))) (str advmod)
                (str compound)))
        ((comp (parent) (cat (str= Adv)))
         (cond ((node2word (in (in of on at by for to with from as than about))) (str case))
               ((node2word (in (the a an all no any))) (str det))
               ((comp (parent) (node2word (reg-match "^(right|over|up|down|out) (now|away|here|there)$"
                       "^so (far|much|many)$")))
                (str advmod))
               ((t) (str fixed))))
        ((node2word (in (a an the no each every))) (str det))
        ((node2word (in (best kind new united south north east west great old big long short last least first prime
                          real same
                         good other early late high many much more most less such due next central fast far full half
                         double
                         low dual)))
         (str amod))
        ((t) (str compound))))

;  A remark in brackets: a noun renames a noun, a phrase describes it, anything else stands beside.
(defun paren-relation ()
  (cond ((is-clause) (str parataxis))
        ((exist-child (rel (str= case))) (if (under-noun) (str nmod) (str obl)))
        ((of-noun) (if (under-noun) (str appos) (str parataxis)))
        ((cat (str= Adv)) (str advmod))
        ((exist-child (rel (str= mark))) (str advcl))
        ((t) (str parataxis))))

(defun universal-relation ()
  (cond ((rel (str= root)) (str root))
        ((rel (in (det predet))) (determiner-relation))
        ((rel (in (case mark aux cop conj iobj expl csubj flat nmod compound vocative discourse parataxis fixed list
                   nsubj obl xcomp ccomp advcl acl amod advmod orphan dep)))
         (cond ((and (rel (str= mark)) (node2word (in (when whenever where wherever how why so)))) (str advmod))
               ((t) (rel))))
        ((rel (str= obj)) (if (of-verb) (if (exist-child (rel (in (subj expl)))) (str ccomp) (str xcomp)) (str obj)))
        ((rel (str= subj)) (if (and (of-verb) (not (exist-child (rel (str= cop))))) (str csubj) (str nsubj)))
        ((rel (str= mod)) (modifier-relation))
        ((rel (str= nn)) (str compound))
        ((rel (str= lex-mod)) (part-relation))
        ((rel (str= neg)) (str advmod))
        ((rel (str= auxpass)) (str aux))
        ((rel (str= gen)) (str nmod))
        ((rel (str= num)) (number-relation))
        ((rel (str= appo)) (str appos))
        ((rel (str= comp)) (if (under-noun) (str acl) (clause-relation)))
        ((and (rel (str= sub)) (comp (parent) (of-verb)) (exist-child (and (rel (str= mark)) (node2word (str= that))))
              (not (comp (parent) (exist-child (node2word (in (so such)))))))
         (str ccomp))
        ((rel (in (sub purpose))) (if (without-clause) (str xcomp) (str advcl)))
        ((rel (in (rel vrel)))
         (cond ((under-noun) (str acl)) ((cat (str= Adv)) (str advmod)) ((exist-child (rel (str= case))) (str obl))
               ((t) (str obj))))
        ((rel (str= wh)) (cond ((cat (str= Adv)) (str advmod)) ((exist-child (rel (str= case))) (str obl))
                               ((t) (str obj))))
        ((rel (in (time measure loc))) (if (cat (str= Adv)) (str advmod) (if (in-nominal) (str nmod) (str obl))))
        ((rel (str= pred)) (str xcomp))
        ((rel (str= paren)) (paren-relation))
        ((rel (str= voc)) (str vocative))
        ((rel (str= conn)) (str cc))
        ((rel (str= report)) (str parataxis))
        ((cat) (if (rel (in (pcomp comp0))) (str obl) (str dep)))
        ((comp (parent) (of-preposition)) (str fixed))
        ((t) (str compound))))
