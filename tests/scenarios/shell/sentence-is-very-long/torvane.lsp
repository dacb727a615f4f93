; A sentence of 20,000 words.
