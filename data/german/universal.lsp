; What others call the words: universal categories and features.
(defun universal-category ()
  (cond ((cat (str= NN)) (if (node2attvec (contain (+proper))) (str PROPN) (str NOUN)))
        ((cat (in (Pro RelPro))) (str PRON))
        ((cat (reg-match "^V$")) (str VERB))
        ((cat (str= Aux)) (str AUX))
        ((cat (in (A Pred))) (str ADJ))
        ((cat (in (Adv Deg))) (str ADV))
        ((cat (in (P Prt))) (str ADP))
        ((cat (str= Det)) (str DET))
        ((cat (str= Comp)) (str SCONJ))
        ((cat) (str X))
        ((t) (str X))))

; The case of a noun is told by what it does.
(defun universal-features ()
  (cond ((cat (in (NN Pro RelPro)))
         (cond ((rel (str= nsubj)) (str "Case=Nom"))
               ((rel (str= obj)) (str "Case=Acc"))
               ((rel (str= iobj)) (str "Case=Dat"))))
        ((cat (reg-match "^V$"))
         (cond ((node2attvec (strict-unifiable (vform) ((vform inf)))) (str "VerbForm=Inf"))
               ((node2attvec (strict-unifiable (vform) ((vform part)))) (str "VerbForm=Part"))
               ((t) (str "VerbForm=Fin"))))))

; Words that no tree took.
(defun outside-category ()
  (cond ((in (und oder aber)) (str CCONJ))
        ((reg-match "^[^A-Za-z0-9\128-\255]+$") (str PUNCT))
        ((t) (str X))))
(defun outside-relation ()
  (cond ((in (und oder aber)) (str cc))
        ((reg-match "^[^A-Za-z0-9\128-\255]+$") (str punct))
        ((t) (str dep))))

; A sentence of running text ends with such a sign, if the next word has a capital.
(defun sentence-boundary ()
  (sbnd (current-token (reg-match "[.?!]$")) . (current-token (reg-match "^[A-Z\195]"))))
