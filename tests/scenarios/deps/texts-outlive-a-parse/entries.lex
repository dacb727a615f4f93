(dog (avm))
