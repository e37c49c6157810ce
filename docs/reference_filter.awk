# Prepares a header for Doxygen, which wants a comment at each name. In the headers
#   - functions that belong together and stand below one another, without an empty line between
#     them, share the comment of the first: setter and getter, number and element, overloads, a
#     solid and a wire shape;
#   - the functions of a group "Each is the one of the same name in CLASS." have the comments of
#     that class;
#   - functions that Qt calls do what Qt says of them.
# Here each gets its own, on the line on which it stands, so that the numbers of lines stay.

# GetAxisEnable for "int GetAxisEnable(int axis) const;"
function name_of(line) {
  if (match(line, /operator[^ (]+\(/)) return substr(line, RSTART, RLENGTH - 1)
  sub(/\(.*/, "", line)
  sub(/.*[^A-Za-z0-9_~]/, "", line)
  return line
}

# What functions that belong together have in common.
function subject_of(name) {
  sub(/^(Get|Set|Enable|Init|Delete|auxSolid|auxWire)/, "", name)
  sub(/^Num/, "", name)
  sub(/(Enable|Flag|Mode)$/, "", name)
  sub(/s$/, "", name)
  return name
}

function comment_of(name, text) {
  if (name ~ /(Event|izeHint)$/ && /override;/) return "As Qt says of QWidget, for the charts."
  if (group_class != "") return "@copydoc " group_class "::" name
  text = shared[subject_of(name)]
  # A getter is given less than its setter.
  if (name ~ /^Get/) gsub(/@param[^@]*/, "", text)
  return text
}

/^[ \t]*\/\/\// {
  text = $0
  sub(/^[ \t]*\/\/\/[ \t]?/, "", text)
  if (text ~ /^@name/) in_head = 1
  if (text ~ /^@\{/) in_head = 0
  if (text ~ /^@\}/) group_class = ""
  if (in_head && match(text, /Each is the one of the same name in [A-Za-z0-9]+/)) {
    group_class = substr(text, RSTART, RLENGTH)
    sub(/.* /, "", group_class)
  }
  if (!in_head && text !~ /^@[{}]/) comment = comment " " text
  print
  next
}

{
  starts = !continues
  continues = $0 !~ /[;{}:][ \t]*(\/\/.*)?$/ && $0 !~ /^[ \t]*(#.*)?$/
  is_function = $0 ~ /^[ \t]*[A-Za-z_\[].*[A-Za-z0-9_+=<>]\(/ && $0 !~ /\/\/\/</
  added = ""
  if (/^[ \t]*$/) {
    delete shared
  } else if (starts && is_function && !/= delete;/) {
    name = name_of($0)
    if (comment != "") {
      shared[subject_of(name)] = comment
    } else {
      added = comment_of(name)
    }
  }
  comment = ""
  print(added != "" ? "/** " added " */ " $0 : $0)
}
