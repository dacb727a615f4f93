; Every byte there is in the sentence.
