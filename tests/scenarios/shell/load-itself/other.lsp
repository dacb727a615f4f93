(echo other)
