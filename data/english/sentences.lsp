; Where a sentence of running text ends. A token is what stands between blanks. A sentence ends with a token that
; has a full stop, question or exclamation mark, maybe before closing quotes and brackets, and is no abbreviation
; or initial, if the next token begins like a sentence.

; Before a name or a number: these never end a sentence.
(defun title ()
  (in ("Mr." "Mrs." "Ms." "Messrs." "Dr." "Drs." "Prof." "St." "Gen." "Lt." "Col." "Capt." "Sgt." "Maj." "Cmdr."
       "Sen." "Rep." "Gov." "Pres." "Rev." "Hon." "Fr." "Sr." "Mt." "Ft." "No." "Nos." "Fig." "Vol." "pp." "p." "vs."
       "v." "cf." "e.g." "i.e." "eg." "ie." "viz." "ca." "approx." "esp." "incl." "ext." "tel." "PS." "P.S." "Amb." "Supt." "Atty.")))
; These may: what follows decides.
(defun abbreviation ()
  (in ("Inc." "Ltd." "Co." "Corp." "Jr." "Bros." "al." "a.m." "p.m." "U.S." "U.K." "U.N." "E.U." "D.C." "B.C."
       "A.D." "Ph.D." "M.D." "Jan." "Feb." "Mar." "Apr." "Jun." "Jul." "Aug." "Sep." "Sept." "Oct." "Nov." "Dec."
       "Mon." "Tue." "Wed." "Thu." "Fri." "Sat." "Sun." "Ave." "Blvd." "Rd." "dept." "est." "min." "max." "Cal."
       "Calif." "Fla." "Mass." "Pa." "Va." "Wash." "Ill." "Ga." "Tex." "Ariz." "Conn." "Colo.")))

; A., J.R., U.S., but not I.
(defun initial () (reg-match "^[\"'(]*[A-HJ-Z][.]([A-Z][.])*$"))
(defun smiley () (reg-match "^[:;=][-o']?[)(DP]+$"))
(defun ends ()
  (or (smiley)
      (and (reg-match "[.?!][\"')*]*$") (not (title)) (not (initial)) (not (abbreviation)))))
(defun ends-short () (or (abbreviation) (reg-match "^([A-Z][.])([A-Z][.])+$")))
; Rows of signs, addresses of the web and of mail, and the ends of letters stand for themselves.
(defun stands-alone ()
  (or (reg-match "^[-_*=~#]+[-_*=~#][-_*=~#]$" "[^>]>>$" "^[AP]M:?$" "^<?https?:..*$" "^<?[A-Za-z0-9_.]*@[A-Za-z0-9_.]*[.][a-z]*>?$")
      (in ("Sincerely," "Regards," "Cheers,"))))
(defun begins-name () (reg-match "^[A-Z]" "^https?:"))
(defun goes-on () (reg-match "^[,;:)]" "^&$"))
; Hurried writers begin in small letters too: behind a mark that can be nothing else.
(defun ends-surely ()
  (and (reg-match "[?!]$" "[a-z0-9)][a-z)][.]$") (not (title)) (not (abbreviation))))
(defun begins () (or (reg-match "^[^a-z,;)&]") (reg-match "^(https?:|www[.])")))
; Behind an abbreviation only what begins a sentence and hardly anything else.
(defun begins-surely ()
  (in :case-sensitive (The An It He She We They You This That These Those There But And In However "However," If
       When My His Her Please What How Why)))

(defun sentence-boundary ()
  (sbnd (current-token (or (ends) (ends-short) (stands-alone)))
        .
        (or (current-token (begins-surely))
            (and (token 1 (ends-surely)) (not (current-token (goes-on))))
            (and (token 1 (stands-alone)) (current-token (begins-name)))
            (and (token 1 (ends)) (current-token (begins))))))
