; Where a sentence of running text ends. A token is what stands between blanks. A sentence ends with a token that
; has a full stop, question or exclamation mark, maybe before closing quotes and brackets, and is no abbreviation
; or initial, if the next token begins like a sentence.

; Before a name or a number: these never end a sentence.
(defun title ()
  (in ("Mr." "Mrs." "Ms." "Messrs." "Dr." "Drs." "Prof." "St." "Gen." "Lt." "Col." "Capt." "Sgt." "Maj." "Cmdr."
       "Sen." "Rep." "Gov." "Pres." "Rev." "Hon." "Fr." "Sr." "Mt." "Ft." "No." "Nos." "Fig." "Vol." "pp." "p." "vs."
       "v." "cf." "e.g." "i.e." "eg." "ie." "viz." "ca." "approx." "esp." "incl." "ext." "tel." "PS." "P.S." "Amb."
       "Supt." "Atty.")))
; These may: what follows decides.
(defun abbreviation ()
  (in ("Inc." "Ltd." "Co." "Corp." "Jr." "Bros." "al." "a.m." "p.m." "U.S." "U.K." "U.N." "E.U." "D.C." "B.C."
       "A.D." "Ph.D." "M.D." "Jan." "Feb." "Mar." "Apr." "Jun." "Jul." "Aug." "Sep." "Sept." "Oct." "Nov." "Dec."
       "Mon." "Tue." "Wed." "Thu." "Fri." "Sat." "Sun." "Ave." "Blvd." "Rd." "dept." "est." "min." "max." "Cal."
       "Calif." "Fla." "Mass." "Pa." "Va." "Wash." "Ill." "Ga." "Tex." "Ariz." "Conn." "Colo.")))

; A., J.R., U.S., but not I.
(defun initial () (reg-match "^[\"'(]*[A-HJ-Z][.]([A-Z][.])*$"))
(defun smiley () (reg-match "^[:;=][-o']?[)(DP]+[.!]*$"))
(defun ends ()
  (or (smiley)
      (and (reg-match "[.?!][\"')*]*$") (not (title)) (not (initial)) (not (abbreviation)))))
(defun ends-short () (or (abbreviation) (reg-match "^([A-Z][.])([A-Z][.])+$")))
; Rows of signs, addresses of the web and of mail, and the ends of letters stand for themselves.
(defun stands-alone ()
  (or (reg-match "^[-_*=~#]+[-_*=~#][-_*=~#]$" "[^>]>>$" "^[AP]M:?$" "^<?https?:..*$" "@[A-Za-z0-9_.]*[.][a-z]*>?$")
      (in ("Sincerely," "Regards," "Cheers," "Thanks," "Hi," "Hello,"))))
(defun begins-name () (reg-match "^[A-Z]" "^https?:"))
(defun goes-on () (or (smiley) (reg-match "^[,;:)]" "^&$" "^[.]+$" "^--?$")))
; What a letter that is sent on has in its head: a name or an address, and when it was written.
(defun sender () (reg-match "^[A-Z][^,]*$" ">$"))
(defun date () (reg-match "^[0-9]+/[0-9]+/[0-9][0-9]+$"))
; Files that are enclosed: - Menu.doc - Map.pdf
(defun file () (reg-match "[.](pdf|doc|xls|txt|htm|html|jpg|gif)[)]?$"))
; Hurried writers begin in small letters too: behind a mark that can be nothing else.
(defun ends-surely ()
  (and (reg-match "[?!]$" "[a-z0-9)][a-z0-9)][.]$" "[A-Z][A-Z][.]$") (not (title)) (not (abbreviation))))
(defun begins ()
  (and (not (goes-on)) (or (reg-match "^[^a-z,;)&]") (reg-match "^(https?:|www[.])"))))
; Behind an abbreviation only what begins a sentence and hardly anything else.
(defun begins-surely ()
  (in :case-sensitive (The An It He She We They You This That These Those There But And In However "However," If
       When My His Her Please What How Why)))

; Hurried writers forget the blank: quality.You'll, really??how. A blank stands where two sentences may meet.
(defun sentence-joint ()
  (and (reg-match "^[A-Za-z'-]*[a-z][a-z][.] [A-Z]['a-z][^.]*[.]?$" "^[^/@]*[a-z)][?!]+ [A-Za-z]"
         "^[^/@]*[a-z)][.?!]*[.?!][.?!] [A-Z]")
       (not (reg-match "[.] (Com|Net|Org|Inc)"))))

(defun sentence-boundary ()
  (sbnd (current-token (t))
        .
        (or (and (token 1 (or (ends) (ends-short) (stands-alone))) (current-token (begins-surely)))
            (and (current-token (date)) (token 1 (sender)))
            (and (current-token (reg-match "^-$")) (token 1 (or (file) (reg-match ">>$"))))
            (and (token 1 (ends-surely)) (not (current-token (goes-on))))
            (and (token 1 (stands-alone)) (current-token (begins-name)))
            (and (token 1 (ends)) (current-token (begins))))))
