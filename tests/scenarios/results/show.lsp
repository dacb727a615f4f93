; NAME=VALUE, where a value of nothing is "none".
(defun show (name value)
  (prog (comp (get-val name) (print-str :suffix "="))
        (if (get-val value) (comp (get-val value) (print-str)) (comp (str none) (print-str)))
        (comp (str " ") (print-str))))
(defun number (name value) (show (get-val name) (comp (get-val value) (int2str))))
(defun truth (name value) (show (get-val name) (if (get-val value) (str yes))))
