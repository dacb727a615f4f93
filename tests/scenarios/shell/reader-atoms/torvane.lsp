; The reader, seen through the rest of a form whose command is unknown.
(nosuch a,b a, b ,c 1,000 (x,(y),) ) ; a comment
(nosuch "a,b" "" () (()) "with blank" "semi;colon" back\slash quote"inside"word)
(nosuch "tab\there" "\65\066\0671" "\q\"\\" "two
lines")
; a comment that goes on \
(echo never)
(nosuch :Key ~x +y -z 'q #t [b] {c} |d|)
atom "string" (exit)
