assert open("out/deep/a b.txt").read() == "out/deep/a b.txt\n"
