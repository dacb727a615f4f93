import re
import sys

numbers = [int(n) for n in re.findall(r"(\d+) kB", open("peaks").read())]
size, few, _, many = numbers
# The address sanitizer reserves much and keeps what was freed.
sys.exit(0 if size > 1 << 30 or many - few < 2000 else f"the peak grew from {few} to {many} kB")
