; The lexicon and the endings by which a form is led back to its entry.
;
; (p SUFFIX NAME REPLACEMENT CONDITION) cuts SUFFIX off and puts REPLACEMENT there; (d ...) also undoes a
; doubled consonant; (e ... BEFORE) wants one of the letters BEFORE in front of an -es. What came out is
; looked up, and the item remembers NAME; inflection.lsp says what NAME means for a noun or a verb. Every
; ending is tried, so a form may have several readings: `leaves` is both `leaf` and `leave`.

(make-lexicon english 6007 :ending-table (
  ; A short word of one vowel and one consonant doubles the consonant: `hop` gives hopped, never hoped.
  (:conditions ((not-doubling) (not (reg-match "^[^aeiou]*[aeiou][bdfgklmnprtvz]$"))))

  (p "" bare)                       ; the word itself

  (p s s)                           ; dogs, sings
  (e es s "" sxzho)                 ; boxes, wishes, goes
  (p ies s y)                       ; cities, tries
  (p ves s f)                       ; wolves
  (p ves s fe)                      ; knives

  (p ed ed "" not-doubling)         ; walked
  (p ed ed e)                       ; hoped
  (d ed ed)                         ; hopped
  (p ied ed y)                      ; tried

  (p ing ing "" not-doubling)       ; walking
  (p ing ing e)                     ; hoping
  (d ing ing)                       ; hopping
  (p ying ing ie)                   ; lying

  (p er er "" not-doubling)         ; colder, singer
  (p er er e)                       ; larger, driver
  (d er er)                         ; bigger, runner
  (p ier er y)                      ; happier
  (p est est "" not-doubling)       ; coldest
  (p est est e)                     ; largest
  (d est est)                       ; biggest
  (p iest est y)                    ; happiest

  (p ly ly)                         ; slowly
  (p ily ly y)                      ; happily
  (p ly ly le)                      ; simply
  (p lly ly ll)                     ; fully
  (p ally ly)))                     ; basically
