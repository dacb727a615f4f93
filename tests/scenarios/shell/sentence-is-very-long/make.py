open("sentense.dat", "w").write("word " * 20000)
