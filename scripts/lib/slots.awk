# Reads the compiler's dump of classes and prints the virtual tables of the project's own classes,
# one "Class::Operation" a line in slot order. A further table of a class is "Class+N": it belongs
# to the base that begins N words into the object. Of the operations in a first table the dump
# holds the names alone; those of a further table are mangled and become whole signatures.

/^Vtable for / {
  # Class templates are mere parts of the classes that are listed.
  listed = /^Vtable for NZELVYR20::[A-Za-z0-9_]+$/
  sub(/^Vtable for NZELVYR20::/, "")
  name = $0
  next
}

/^$/ { listed = 0 }

listed && /^[0-9]+ +\(int \(\*\)\(\.\.\.\)\)/ {
  at = $1
  sub(/^[0-9]+ +\(int \(\*\)\(\.\.\.\)\)/, "")
  if (/^-?[0-9]+$/) {
    top = $0 + 0
    top_at = at
  } else if (/^\(& _ZTI/) {
    table = top ? name "+" (-top / (at - top_at)) : name
  } else {
    if (!sub(/^.*::_Z/, "_Z")) sub(/^.*::/, "")
    print table "::" $0
  }
}
