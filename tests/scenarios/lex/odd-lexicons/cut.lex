(whole (g a))
(cut (g b) (g c