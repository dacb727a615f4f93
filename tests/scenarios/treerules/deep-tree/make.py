# Words in a line, each under the one before it, and words all under the first.
def write(name, n, parent):
    with open(name, "w") as out:
        print("(:id t 1 (w ~ W *)", file=out)
        for i in range(2, n + 1):
            print(f"{i} (w ~ W {parent(i)} r)", file=out)
        print(")", file=out)


write("path.txt", 30000, lambda i: i - 1)
write("short-path.txt", 3000, lambda i: i - 1)
write("fan.txt", 30000, lambda i: 1)
