; The vocabulary.
(the (avm ((cat d))))
(these (avm ((cat d) (num pl))))

(dog (avm (noun)))
(cat (avm (noun)))
(mat (avm (noun)))

(sleep (avm ((cat v))))
(see (avm (verb)))
(chase (avm (verb)))
(like (avm (verb)))
