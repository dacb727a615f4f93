; The sentence cannot be read.
