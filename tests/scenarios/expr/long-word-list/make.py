words = [f"word{i * 7919 % 1000000}" for i in range(1000000)]
open("long.txt", "w").write("\n".join(words))
