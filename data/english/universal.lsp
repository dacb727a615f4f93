; What the words of a tree are called by tools that read many languages: universal categories and features.
; Who writes a tree for others asks these functions, by these names; the parser itself does not know them.

(defun of-verb () (cat (reg-match "^V$|^V_")))
(defun of-preposition () (cat (reg-match "^P$|^P_|^N_P$")))
(defun of-adjective () (cat (reg-match "^A$|^A_")))
(defun of-noun () (cat (in (NN NB Pro Num Det RelPro))))
(defun is-proper () (node2attvec (contain (+proper))))

; Word lists that several functions use.
(defun possessive () (node2word (in (my your his her its our their whose))))
(defun demonstrative () (node2word (in (this that these those what which whatever whichever))))
(defun quantity () (node2word (in (many few several much more most less fewer enough little other own same least))))
(defun particle () (node2word (in (up out off on in down over through along around about by))))
; went out, came in: a place, where `give in` and `find out` have a particle.
(defun of-motion ()
  (and (node2word (in (in out down over around by through along on off)))
       (comp (parent) (node2root (in (go come walk run drive fly move live stay sit lie stand rush ride travel take
                                       bring
                                      be get stop step jump put))))))
(defun interjection ()
  (node2word (in (please yes no hi hello hey ok okay oh wow well lol yeah yep nope yup thanks haha ah hmm ugh bye
                  welcome congratulations pls plz gosh damn hooray alas))))
(defun number-word ()
  (or (reg-match "^[0-9]+$")
      (in (one two three four five six seven eight nine ten eleven twelve fifteen twenty thirty forty fifty sixty
            hundred
           thousand million billion))))
(defun before-noun () (rel (in (det predet))))

; A part of a word that the lexicon writes apart has no category of its own: New York, in spite of.
(defun category-of-part ()
  (cond ((and (node2word (in (as))) (exist-child (rel (str= fixed)))) (str ADV))
        ((and (node2word (in (more less))) (exist-child (rel (str= fixed)))) (str ADJ))
        ((and (comp (parent) (of-verb)) (of-motion)) (str ADV))
        ((and (node2word (in (over up down out))) (comp (parent) (node2word (reg-match " t?here$")))) (str ADV))
        ((node2word (in (in of on at by for to with from as than about up off out down over like into per until)))
         (str ADP))
        ((node2word (in (the a an this that no all any some each))) (str DET))
        ((node2word (reg-match "^[A-Z][a-z]*(ean|ian|can|ish|ese|mic)$")) (str ADJ))
        ((node2word (in (new united south north east west great old big long short last least first prime real same
                         good other early late high many much more most less such due next central fast far)))
         (str ADJ))
        ((node2word (in (back right away apart together forward ahead aside long soon ever even so well there here now
                          then
                         still just very))) (str ADV))
        ((node2word (in (and or but))) (str CCONJ))
        ((node2word (in (because if though although that))) (str SCONJ))
        ((node2word (in ("&"))) (str CCONJ))
        ((exist-child (rel (str= flat))) (str PROPN))
        ((node2word (reg-match "^[^A-Za-z0-9\128-\255]+$")) (str PUNCT))
        ((comp (parent) (is-proper)) (str PROPN))
        ((comp (parent) (cat (str= Num))) (str NUM))
        ((comp (parent) (of-verb)) (str NOUN))
        ((or (node2word (reg-match "^[0-9]")) (node2word (number-word))) (str NUM))
        ((node2word (in (well far so long newly highly))) (str ADV))
        ((t) (str NOUN))))

(defun category-of-determiner ()
  (cond ((possessive) (str PRON))
        ((quantity) (str ADJ))
        ((node2word (in (such))) (if (rel (str= predet)) (str DET) (str ADJ)))
        ((before-noun) (str DET))
        ((demonstrative) (str PRON))
        ((t) (str DET))))

; at least, in general, of course: a phrase with a preposition that the lexicon has as an adverb.
(defun is-phrase-with-preposition ()
  (exist-child (and (rel (str= lex-mod)) (node2word (in (at in of on by for to from with after as))))))
(defun category-of-adverb ()
  (cond ((is-phrase-with-preposition)
         (cond ((node2word (reg-match " (such|usual|least|most|last|first|general|particular|short|brief|common)$"))
                 (str ADJ))
               ((node2word (reg-match " all$")) (str DET))
               ((node2word (reg-match " (once|now|then|there|here)$")) (str ADV))
               ((t) (str NOUN))))
        ((and (rel (str= fixed)) (node2word (reg-match "than$"))) (str ADP))
        ((interjection) (if (node2word (in (well no))) (if (rel (str= discourse)) (str INTJ) (str ADV)) (str INTJ)))
        ((and (rel (str= mod)) (particle) (comp (parent) (of-verb)) (not (of-motion))) (str ADP))
        ((node2word (in (up off))) (str ADP))
        ((t) (str ADV))))

(defun category-of-mark ()
  (if (node2word (in (when whenever where wherever how why so))) (str ADV) (str SCONJ)))

; text-based, 15-year, sky-high: what a compound with a hyphen is, its last part tells.
(defun category-of-compound ()
  (cond ((node2word (in (else))) (str ADV))
        ((node2word (in (following))) (str VERB))
        ((not (node2word (reg-match "-"))) (str ADJ))
        ((node2word (reg-match "(ed|ing)$")) (str VERB))
        ((node2word (reg-match "(known|ive|al|ous|ful|able|ible|ic|less|free|friendly|high|long|old|wide|ly|time)$"))
          (str ADJ))
        ((t) (str NOUN))))

; There is a problem: `be` itself is the predicate.
(defun is-main-be () (exist-child (rel (str= expl))))

; the meeting, our hiring: a gerund with a determiner and without an object is a noun.
(defun is-action ()
  (and (node2word (reg-match "ing$")) (exist-child (rel (in (det gen))))
       (not (exist-child (rel (in (obj iobj subj aux cop comp auxpass mark)))))))

; on the 5th, March 3rd: a day, where the 5th street has an adjective
(defun is-date () (or (not (rel (str= num))) (exist-child (node2attvec (contain (+time)))) (comp (parent) (node2attvec
        (contain (+time))))))

(defun universal-category ()
  (cond ((cat (in (NN NB))) (cond ((node2word (in ("$" "\194\163" "\226\130\172" "#"))) (str SYM))
                                   ((is-proper) (str PROPN)) ((t) (str NOUN))))
        ((of-preposition) (cond ((rel (str= mark)) (str SCONJ)) ((node2word (in (ago))) (str ADV)) ((t) (str ADP))))
        ((cat (str= Det)) (category-of-determiner))
        ((of-verb) (if (is-action) (str NOUN) (str VERB)))
        ((and (cat (str= Pro)) (node2word (in (one))) (exist-child (exist-child (rel (str= case))))) (str NUM))
        ((cat (in (Pro RelPro)))
         (if (node2word (in (today tomorrow yesterday tonight lot lots plenty number couple "a lot"))) (str NOUN)
           (str PRON)))
        ((cat (str= Aux)) (cond ((node2attvec (contain ((own inf)))) (str PART))
                                ((is-main-be) (str VERB))
                                ((t) (str AUX))))
        ((of-adjective) (category-of-compound))
        ((cat (str= Adv)) (category-of-adverb))
        ((cat (str= Num)) (cond ((quantity) (str ADJ))
                                ((node2word (reg-match "^[0-9]+(st|nd|rd|th)$")) (if (is-date) (str NOUN) (str ADJ)))
                                ((t) (str NUM))))
        ((cat (str= Intj)) (str INTJ))
        ((cat (str= Sign)) (if (node2word (reg-match "^[:;=8][-o']?[)(DPp|]")) (str SYM) (str PUNCT)))
        ((cat (str= Conn)) (str CCONJ))
        ((cat (in (Comp Sub PSub With))) (category-of-mark))
        ((cat (str= ItIs)) (str PRON))
        ((cat (in (Neg Gen))) (str PART))
        ((cat) (str X))
        ((t) (category-of-part))))

; Words that no tree took.
(defun outside-category ()
  (cond ((in ("&")) (str CCONJ))
        ((reg-match "^[$%#+=<>/*]$") (str SYM))
        ((reg-match "^[:;=8][-o']?[)(DPp|]+$") (str SYM))
        ((reg-match "^[^A-Za-z0-9\128-\255]+$") (str PUNCT))
        ((in (and or but nor "&" yet plus both either neither)) (str CCONJ))
        ((reg-match "^[$]?[0-9]") (str NUM))
        ((in ("'s" "'t" "n't" not to)) (str PART))
        ((in (the a an this these no every each all some any)) (str DET))
        ((in (of in on at by for with from into about over after before as through during between under up out
              off down like than)) (str ADP))
        ((in (i you he she it we they me him us them my your his her its our their who what which that there))
          (str PRON))
        ((in (is are was were be been am being do does did has have had will would can could should may might must
              "'m" "'re" "'ve" "'ll" "'d")) (str AUX))
        ((in (very so too also just only now then here when where how why even still again always never ever))
         (str ADV))
        ((in (because if although though while whether unless since)) (str SCONJ))
        ((in (hello hi yes no please thanks oh wow hey okay ok well lol)) (str INTJ))
        ((reg-match "^[A-Z]") (str PROPN))
        ((t) (str NOUN))))
(defun outside-relation ()
  (cond ((in ("&")) (str cc))
        ((reg-match "^[$%#+=<>]$") (str dep))
        ((reg-match "^[^A-Za-z0-9\128-\255]+$") (str punct))
        ((in (and or but nor "&" yet plus both either neither)) (str cc))
        ((in (hello hi yes no please thanks oh wow hey okay ok well lol)) (str discourse))
        ((in (the a an this these every each)) (str det))
        ((in (of in on at by for with from into about)) (str case))
        ((in (very so too also just only now then here not n't)) (str advmod))
        ((in (is are was were be been am being do does did has have had will would can could should may might must))
         (str aux))
        ((t) (str dep))))
