(echo carriage
 return)
