(echo never)
