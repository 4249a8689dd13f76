"""Answers polkit's question for a password, in the place of a desktop's program.

    polkit_agent.py PROCESS confirm|dismiss

PROCESS is whose questions are answered, until this program is ended. It runs as the superuser: only to
that does polkit listen, and a desktop's program has a helper for it, which looks at the password.
Says "ready" once polkit knows it.
"""

import sys
from pathlib import Path

from gi.repository import Gio, GLib

POLKIT = "org.freedesktop.PolicyKit1"
PATH = "/agent"
INTERFACE = f"""<node><interface name="{POLKIT}.AuthenticationAgent">
<method name="BeginAuthentication">
<arg type="s"/><arg type="s"/><arg type="s"/><arg type="a{{ss}}"/><arg type="s"/>
<arg type="a(sa{{sv}})"/>
</method>
<method name="CancelAuthentication"><arg type="s"/></method>
</interface></node>"""


def ask(bus, method, kinds, *values):
    bus.call_sync(POLKIT, f"/{POLKIT.replace('.', '/')}/Authority", f"{POLKIT}.Authority", method,
                  GLib.Variant(kinds, values), None, 0, -1, None)


def start_time(process):
    """In ticks since the start of the system; the program's name, in brackets, may hold blanks."""
    return int(Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()[19])


def main(process, answer):
    bus = Gio.bus_get_sync(Gio.BusType.SYSTEM)

    def answer_question(_bus, _sender, _path, _interface, method, words, call):
        if method == "BeginAuthentication" and answer == "dismiss":
            call.return_dbus_error(f"{POLKIT}.Error.Cancelled", "dismissed")
            return
        if method == "BeginAuthentication":
            _, _, _, _, cookie, identities = words.unpack()
            kind, details = identities[0]
            named = {key: GLib.Variant("u", value) for key, value in details.items()}
            ask(bus, "AuthenticationAgentResponse2", "(us(sa{sv}))", 0, cookie, (kind, named))
        call.return_value(None)

    bus.register_object(PATH, Gio.DBusNodeInfo.new_for_xml(INTERFACE).interfaces[0],
                        answer_question, None, None)
    subject = {"pid": GLib.Variant("u", process),
               "start-time": GLib.Variant("t", start_time(process))}
    ask(bus, "RegisterAuthenticationAgent", "((sa{sv})ss)", ("unix-process", subject), "C", PATH)
    print("ready", flush=True)
    GLib.MainLoop().run()


if __name__ == "__main__":
    main(int(sys.argv[1]), sys.argv[2])
