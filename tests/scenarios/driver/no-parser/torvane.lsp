; Without a parser the sentence is not parsed.
(echo "no parser here")
