((drinks beer wine) (others stone))
