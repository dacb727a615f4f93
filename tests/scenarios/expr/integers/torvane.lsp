; Sums, comparisons and texts of integers, and how alike two texts are.
(defun show () (int2str (print-str :suffix " ")))
(foreach (w) :eval (prog
  (comp (int-sum (int 2) (int 3)) (show)) (comp (int-diff (int 2) (int 3)) (show))
  (comp (int-eq (int 3) (int-sum (int 1) (int 2))) (show)) (comp (int-gt (int -1) (int -2)) (show))
  (comp (int-gt (int -2) (int -1)) (show)) (comp (int 41) (+1 (show))) (comp (int 1) (-1 (-1 (show))))
  (comp (int 4294967297) (show)) (comp (int 255) (ent2str (print-str :suffix "\n")))
  (comp (int -1) (ent2str (print-str :suffix "\n"))) (comp (int-eq (int 1)) (show))
  (comp (int-sum) (show)) (comp (str-sim (str night) (str NIGHT)) (show))
  (comp (str-sim (str night) (str nacht)) (show)) (comp (str-sim (str night) (str xyz)) (show))
  (comp (str-sim (nil) (str a)) (show)) (comp (str-sim (nil) (nil)) (show))))
(eval (show))
