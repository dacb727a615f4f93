; Pages on words: a list with links, and two words side by side.
(make-tripledb db 101) (link-file db db.hdr rw) (populate-tripledb db rels.txt deps.txt)
(print-tripledb-entry-in-html db :words (beer nosuch) :url "<a href=/cgi-bin/find?" :index-url /index
  :codes ((-V:obj:N "what one does with it") (N:with:N unused) (short)))
(echo "")
(print-tripledb-entry-in-html db :words (MEAL) :output nosuch)
(echo "")
(cmp-tripledb-entries db beer cider :codes ((N:mod:A "described as")))
(cmp-tripledb-entries db cider beer :color0 gray :color1 red :color2 blue)
(cmp-tripledb-entries db beer nosuch)
(cmp-tripledb-entries db)
