# Makes the manual page of the configuration language from its reference.
# usage: awk -f language_page.awk docs/man/torvane.1 docs/language.md > torvane-language.7
# The first file gives the date.

function plain(text) {
  gsub(/\\/, "\\e", text)
  gsub(/`` | ``/, "`", text)
  # What stands between two accents is code.
  count = split(text, pieces, "`")
  text = pieces[1]
  for (i = 2; i <= count; i++)
    text = text (i % 2 == 0 ? "\\fB" : "\\fP") pieces[i]
  if (count % 2 == 0)
    text = text "\\fP"
  return text
}

# A sentence a line, none of which may look like a macro.
function print_text(text) {
  gsub(/\. +/, ".\n", text)
  count = split(plain(text), lines, "\n")
  for (i = 1; i <= count; i++)
    print (lines[i] ~ /^[.']/ ? "\\&" : "") lines[i]
}

function end_list() {
  if (in_list)
    print ".El"
  in_list = 0
}

FNR == NR {
  if (/^\.Dd/)
    date = $0
  next
}

/^# / {
  print date "\n.Dt TORVANE-LANGUAGE 7\n.Os\n.Sh NAME\n.Nm torvane-language\n.Nd the configuration language of torvane"
  print ".Sh DESCRIPTION"
  print "A grammar is a row of forms in files.\nA command runs once, when its form is read;"
  print "expressions are compiled then, and evaluated on values.\nBelow stands what each part of the engine offers,"
  print "with the texts that the commands\n.Ic help\nand\n.Ic objects\nprint."
  next
}

/^## / {
  end_list()
  print ".Sh " toupper(substr($0, 4))
  next
}

/^### / {
  end_list()
  print ".Ss " plain(substr($0, 5))
  next
}

/^- `/ {
  if (!in_list)
    print ".Bl -tag -width Ds"
  in_list = 1
  end = index(substr($0, 4), "`")
  name = substr($0, 4, end - 1)
  gsub(/\\/, "\\e", name)
  gsub(/"/, "\\(dq", name)
  print ".It Ic \\&" name
  print_text(substr($0, end + 6))
  next
}

# What stands above the first heading is of the page as a file of the project.
NF && in_list {
  print_text($0)
}

END {
  end_list()
  print ".Sh SEE ALSO\n.Xr torvane 1"
}
