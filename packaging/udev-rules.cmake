# cmake -D LIST=project.plist -D RULES=FILE -P udev-rules.cmake: writes the rules that permit the listed
# keyboards, as `scenewright-cli udev-rules` prints them, without running a program of this build: it may
# be one for another processor. A test holds the two against each other.
#
# The list is the shipped one, in which the two ids of a keyboard stand as <integer> in decimal, the
# vendor's first.

file(READ ${LIST} text)
string(REGEX REPLACE "<!--([^-]|-[^-])*-->" "" text "${text}")
string(REGEX MATCHALL
    "<key>VID</key>[ \t\r\n]*<integer>[0-9]+</integer>[ \t\r\n]*<key>PID</key>[ \t\r\n]*<integer>[0-9]+"
    entries "${text}")

# Four hexadecimal digits, in lower case.
function(hexadecimal number result)
    math(EXPR digits "${number}" OUTPUT_FORMAT HEXADECIMAL)
    string(TOLOWER "${digits}" digits)
    string(REPLACE "0x" "0000" digits "${digits}")
    string(REGEX MATCH "....$" digits "${digits}")
    set(${result} ${digits} PARENT_SCOPE)
endfunction()

set(rules
"# Lets the user who sits at the computer use the keyboards of Scenewright's device list.
# Install as /etc/udev/rules.d/70-scenewright.rules: the name must sort before 73, where
# the tag \"uaccess\" is acted on. Then plug the keyboard in again.
")
foreach(entry IN LISTS entries)
    string(REGEX MATCHALL "[0-9]+" ids "${entry}")
    list(GET ids 0 vendor)
    list(GET ids 1 product)
    hexadecimal(${vendor} vendor)
    hexadecimal(${product} product)
    string(APPEND rules "ACTION!=\"remove\", SUBSYSTEM==\"usb\", ENV{DEVTYPE}==\"usb_device\", "
        "ATTR{idVendor}==\"${vendor}\", ATTR{idProduct}==\"${product}\", TAG+=\"uaccess\"\n")
endforeach()
file(WRITE ${RULES} "${rules}")
