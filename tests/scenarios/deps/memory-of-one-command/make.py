tree = "(\n1\t(dogs\tdog N\t2\tsubj)\n2\t(bark\t~ V\t*)\n)\n"
for name, trees in (("few", 2000), ("many", 20000)):
    with open(name, "w") as file:
        file.write(tree * trees)
