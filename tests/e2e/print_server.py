"""What stands in for the printing system: a server that knows one printer, as the print dialog asks for it, and a program
`lp` that keeps what it is given."""

import http.server
import os
import struct
import threading

NAME = "Paper"
NAME_TEXT, KEYWORD, URI, CHARSET, LANGUAGE, TEXT, ENUM, BOOLEAN = 0x42, 0x44, 0x45, 0x47, 0x48, 0x41, 0x23, 0x22
GET_PRINTERS, GET_DEFAULT, GET_ATTRIBUTES = 0x4002, 0x4001, 0x000B

DESCRIPTION = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "PAPER.PPD"
*Manufacturer: "None"
*Product: "(Paper)"
*ModelName: "Paper"
*ShortNickName: "Paper"
*NickName: "Paper"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: True
*DefaultColorSpace: RGB
*OpenUI *PageSize/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageSize
*DefaultPageSize: A4
*PageSize A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageSize
*OpenUI *PageRegion/Media Size: PickOne
*OrderDependency: 10 AnySetup *PageRegion
*DefaultPageRegion: A4
*PageRegion A4/A4: "<</PageSize[595 842]>>setpagedevice"
*CloseUI: *PageRegion
*DefaultImageableArea: A4
*ImageableArea A4/A4: "12 12 583 830"
*DefaultPaperDimension: A4
*PaperDimension A4/A4: "595 842"
*OpenUI *Duplex/2-Sided Printing: PickOne
*OrderDependency: 20 AnySetup *Duplex
*DefaultDuplex: None
*Duplex None/Off: "<</Duplex false>>setpagedevice"
*Duplex DuplexNoTumble/Long Edge: "<</Duplex true/Tumble false>>setpagedevice"
*Duplex DuplexTumble/Short Edge: "<</Duplex true/Tumble true>>setpagedevice"
*CloseUI: *Duplex
*DefaultFont: Courier
*Font Courier: Standard "(1.0)" Standard ROM
"""


def attribute(tag, name, value):
    if tag == ENUM:
        value = struct.pack(">i", value)
    elif tag == BOOLEAN:
        value = struct.pack(">?", value)
    else:
        value = value.encode()
    return struct.pack(">BH", tag, len(name)) + name.encode() + struct.pack(">H", len(value)) + value


class Handler(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"

    def do_GET(self):
        self.answer("application/vnd.cups-ppd", DESCRIPTION.encode())

    def do_POST(self):
        if self.headers.get("Expect"):
            self.send_response_only(100)
            self.end_headers()
        operation, request = struct.unpack(">HI", self.body()[2:8])
        # Successful, or not supported.
        status = 0 if operation in (GET_PRINTERS, GET_DEFAULT, GET_ATTRIBUTES) else 0x0501
        answer = struct.pack(">BBHI", 2, 0, status, request) + b"\x01"
        answer += attribute(CHARSET, "attributes-charset", "utf-8")
        answer += attribute(LANGUAGE, "attributes-natural-language", "en")
        if status == 0:
            answer += b"\x04" + self.printer()
        self.answer("application/ipp", answer + b"\x03")

    def printer(self):
        place = f"127.0.0.1:{self.server.server_address[1]}/printers/{NAME}"
        return b"".join(attribute(*each) for each in (
            (NAME_TEXT, "printer-name", NAME),
            (URI, "printer-uri-supported", f"ipp://{place}"),
            (URI, "device-uri", f"ipp://{place}"),
            (TEXT, "printer-info", NAME),
            (TEXT, "printer-make-and-model", NAME),
            (ENUM, "printer-state", 3),
            (KEYWORD, "printer-state-reasons", "none"),
            (ENUM, "printer-type", 0x100C),
            (BOOLEAN, "printer-is-accepting-jobs", True),
            (BOOLEAN, "printer-is-shared", False),
        ))

    def body(self):
        if self.headers.get("Transfer-Encoding") != "chunked":
            return self.rfile.read(int(self.headers["Content-Length"]))
        whole = b""
        while size := int(self.rfile.readline(), 16):
            whole += self.rfile.read(size)
            self.rfile.readline()
        self.rfile.readline()
        return whole

    def answer(self, kind, body):
        self.send_response(200)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *words):
        pass


class PrintServer:
    """A printer and its program `lp`, for programs that are started while the block lasts. Use it in a `with`."""

    def __init__(self, folder, installed=True):
        """Without `installed` there is no `lp` on this machine."""
        self.folder = os.path.join(folder, "lp")
        os.makedirs(self.folder)
        self.path = self.folder + os.pathsep + os.environ["PATH"] if installed else self.folder
        if not installed:
            self.show_others()
            self.ready()
            return
        program = os.path.join(self.folder, "lp")
        with open(program, "w") as script:
            # The file is there whole once its name is.
            script.write(f'''#!/bin/sh
echo "$$" >>"{self.folder}/calls"
printf '%s\\n' "$@" >"{self.folder}/arguments"
while [ -e "{self.folder}/held" ]; do sleep 0.05; done
[ ! -e "{self.folder}/refused" ] || {{ echo "lp: Nobody may print." >&2; exit 1; }}
for file; do :; done
cp "$file" "{self.folder}/taken" && mv "{self.folder}/taken" "{self.paper()}"
echo "request id is {NAME}-1 (1 file(s))"
''')
        os.chmod(program, 0o755)
        self.ready()

    def ready(self):
        self.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Handler)
        self.before = {name: os.environ.get(name) for name in ("CUPS_SERVER", "PATH")}

    def show_others(self):
        """Has all programs of this machine in the folder, but for `lp`."""
        for folder in reversed(os.environ["PATH"].split(os.pathsep)):
            for name in os.listdir(folder) if os.path.isdir(folder) else []:
                link = os.path.join(self.folder, name)
                if os.path.lexists(link):
                    os.remove(link)
                if name != "lp":
                    os.symlink(os.path.join(folder, name), link)

    def refuse(self, refuses=True):
        """From now on `lp` takes nothing; or does again."""
        self.mark("refused", refuses)

    def hold(self, holds=True):
        """From now on `lp` does not go on; or does again."""
        self.mark("held", holds)

    def mark(self, name, there):
        file = os.path.join(self.folder, name)
        open(file, "w").close() if there else os.remove(file)

    def calls(self):
        """How often `lp` was called."""
        try:
            with open(os.path.join(self.folder, "calls")) as calls:
                return len(calls.readlines())
        except FileNotFoundError:
            return 0

    def paper(self):
        return os.path.join(self.folder, "paper.pdf")

    def arguments(self):
        with open(os.path.join(self.folder, "arguments")) as given:
            return given.read().splitlines()

    def __enter__(self):
        threading.Thread(target=self.server.serve_forever, daemon=True).start()
        os.environ["CUPS_SERVER"] = f"127.0.0.1:{self.server.server_address[1]}"
        os.environ["PATH"] = self.path
        return self

    def __exit__(self, *error):
        self.server.shutdown()
        self.server.server_close()
        for name, value in self.before.items():
            if value is None:
                del os.environ[name]
            else:
                os.environ[name] = value
