; What others call the words: universal categories and features.
(defun universal-category ()
  (cond ((cat (str= NN)) (if (node2attvec (contain (+proper))) (str PROPN) (str NOUN)))
        ((cat (in (Pro RelPro))) (str PRON))
        ((cat (str= V)) (str VERB))
        ((cat (str= Aux)) (str AUX))
        ((cat (str= A)) (str ADJ))
        ((cat (str= Adv)) (str ADV))
        ((cat (str= P)) (str ADP))
        ((cat (str= Comp)) (str SCONJ))
        ((t) (str X))))

; The case of a noun is told by what it does.
(defun universal-features ()
  (cond ((cat (in (NN Pro RelPro)))
         (cond ((and (rel (str= nsubj)) (not (comp (parent) (node2attvec (contain ((vform inf))))))) (str "Case=Nom"))
               ((rel (in (nsubj obj))) (str "Case=Acc"))
               ((rel (str= iobj)) (str "Case=Dat"))
               ((rel (str= nmod)) (str "Case=Gen"))))
        ((cat (str= V))
         (if (node2attvec (contain ((vform inf)))) (str "VerbForm=Inf") (str "VerbForm=Fin")))))

; Words that no tree took.
(defun outside-category ()
  (cond ((in (et sed aut)) (str CCONJ))
        ((reg-match "^[^A-Za-z0-9\128-\255]+$") (str PUNCT))
        ((t) (str X))))
(defun outside-relation ()
  (cond ((in (et sed aut)) (str cc))
        ((reg-match "^[^A-Za-z0-9\128-\255]+$") (str punct))
        ((t) (str dep))))

; A sentence of running text ends with such a sign, if the next word has a capital.
(defun sentence-boundary ()
  (sbnd (current-token (reg-match "[.?!]$")) . (current-token (reg-match "^[A-Z]"))))
