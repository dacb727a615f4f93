; Where words begin and end. A token is what stands between blanks. The sentence tokenizer cuts it at most signs, at
; hyphens and apostrophes; here stands what is cut besides, and what the tokenizer should not have cut.

; Without apostrophe, or sounded out. What has the same letters as another word is left: its, well, were, ill.
(defun contraction ()
  (in (cannot gonna wanna gotta outta lotta alot im ive youve weve theyve youre theyre youll itll theyll thats whats
        hes shes theres heres
       wheres whos dont doesnt didnt isnt arent wasnt werent havent hasnt hadnt cant couldnt wont wouldnt shouldnt
       mustnt aint)))
(defun cut-contraction ()
  (comp (reg-sub "([Cc]an)not" "\\1 not")
        (reg-sub "([Aa])lot" "\\1 lot")
        (reg-sub "(na|ta|nt|m|ve|re|ll|s)([^A-Za-z]*)$" " \\1\\2")))

; and/or, but no date, no fraction and no folder.
(defun cut-slashes ()
  (cond ((reg-match "^[^A-Za-z]*[0-9/]+[^A-Za-z]*$" "^/" "^[bcwBCW]/[oc][^A-Za-z]*$" "^w/$") (ident))
        ((reg-match "^w/") (reg-sub "/" "/ "))
        ((reg-match "[A-Za-z0-9]/.") (reg-sub "/" " / " g))
        ((t) (ident))))

; $5, <me@here.org>, #1, 39K, 18+, a quotation that begins, dots and commas without blanks.
(defun cut-signs ()
  (comp (reg-sub "(\\$|\194\163|\226\130\172)([0-9])" "\\1 \\2" g)
        (reg-sub "#([0-9])" "# \\1")
        (reg-sub "([A-Za-z])#" "\\1 #")
        (reg-sub "^([<>~])([A-Za-z0-9])" "\\1 \\2")
        (reg-sub "([A-Za-z0-9/])>([^A-Za-z0-9]*)$" "\\1 >\\2")
        (reg-sub "([0-9])[+]$" "\\1 +")
        (reg-sub
          "(^|[^A-Za-z0-9])([0-9][0-9.,:]*)(K|k|M|MB|GB|KB|kb|mm|cm|km|kg|mg|ml|lbs?|ft|mph|hrs?|mins?|yrs?|am|pm|AM|PM|a[.]m|p[.]m)([^A-Za-z0-9]*)$"
                 "\\1\\2 \\3\\4")))
(defun cut-dots ()
  (cond ((reg-match "@") (ident))
        ((t) (comp (reg-sub "([^. ])([.][.]+)([^.])" "\\1 \\2 \\3" g)
                   (reg-sub "([^. ])([.][.]+)$" "\\1 \\2")
                   (reg-sub "^([.][.]+)([^.)\"' ])" "\\1 \\2")))))
(defun cut-commas ()
  (comp (reg-sub "([A-Za-z]),([A-Za-z0-9])" "\\1 , \\2" g)
        (reg-sub "([0-9]),([A-Za-z])" "\\1 , \\2" g)
        (reg-sub "([A-Za-z]):([A-Za-z0-9])" "\\1 : \\2")
        (reg-sub "([A-Za-z.!?])([*][*]+)$" "\\1 \\2")
        (reg-sub "^([*]+)([A-Za-z])" "\\1 \\2")))
(defun cut-quote ()
  (cond ((in ("'em" "'cause" "'til" "'till" "'tis" "'twas" "'n" "'bout" "'round" "'s" "'m" "'re" "'ve" "'ll" "'d"
               "'t")) (ident))
        ((t) (reg-sub "^'([A-Za-z])" "' \\1"))))

(defun address () (reg-match "^'?https?:" "^www[.]" "://" "[.](com|org|net|edu|gov|html?)/" "^[^<>]*@[^/]*$"))
(defun word-joints ()
  (cond
    ((reg-match "^[A-Za-z]+$")
      (if (contraction) (cut-contraction) (if (str= Lets) (reg-sub "^(Let)s$" "\\1 s") (ident))))
        ((comp (reg-sub "[^A-Za-z]*$" "") (contraction)) (cut-contraction))
        ((reg-match "^<[^ ]*@[^ ]*>?$") (comp (reg-sub "^<" "< ") (reg-sub ">$" " >")))
        ((address) (reg-sub "^'" "' "))
        ((reg-match "[/$#<>~+*,:'\194\226]." "[0-9][A-Za-z]" "[.][.]" "[A-Za-z]#" ">$" "[+]$")
         (comp (cut-slashes) (cut-signs) (cut-dots) (cut-commas) (cut-quote)))
        ((t) (ident))))

; Tokens without a blank between them that are one word, or the beginning of one: rows of signs, faces made of signs,
; addresses, telephone numbers, names such as O'Neill, words with a prefix or suffix. Other words with a hyphen are
; cut at it.
(defun one-word ()
  (or (reg-match "^[.][.]+$" "^[-=]-+=*$" "^==+-*$" "^-=+$" "^[!?][!?]+$" "^[*][*]+$" "^__+$" "^~~+$" "^[$][$]+$"
                 "^[:;=8]-$" "^[:;=8]-?[)(DPp]+$" "^[.:][?]$" "^!+[.]$")
      (reg-match "^https?:[^ ]*[^]) >\"';,.!]$" "^www[.][^ ]*[^]) >\"';,.!]$" "^[A-Za-z0-9.]*[.][a-z]*-[a-z]*$")
      (reg-match "^[0-9][0-9][0-9]-$" "^[0-9][0-9][0-9]-[0-9]*$" "^[0-9][0-9][0-9]-[0-9]*-[0-9]*$")
      (reg-match "^[Oo]'[A-Za-z]*$")
      (reg-match
        "^([Ee]|[Ee]x|[Ee]co|[Nn]on|[Nn]eo|[Aa]nti|[Pp]re|[Pp]ost|[Pp]ro|[Pp]seudo|[Cc]o|[Cc]ounter)-[A-Za-z]*$"
                 "^([Ss]emi|[Ss]ub|[Mm]id|[Mm]is|[Mm]ini|[Mm]ulti|[Rr]e|[Uu]n|[Uu]ni|[Uu]ltra|[Oo]ver|[Vv]ice)-[A-Za-z]*$"
                 "^([Ii]nter|[Bb]i|[Bb]io|[Qq]uasi|[Tt]ri|[Dd]e)-[A-Za-z]*$")))
