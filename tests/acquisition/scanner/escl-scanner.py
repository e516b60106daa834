#!/usr/bin/python3
# SPDX-License-Identifier: GPL-3.0-or-later
"""A scanner of the network for tests: speaks eSCL on a port of this machine, which it prints, until its input ends.

The flatbed has one page, the feeder as many as the first argument says. Each is the picture of the second argument, a JPEG
file, whatever is asked for.
"""
import http.server
import itertools
import re
import sys
import threading

FEEDER_PAGES = int(sys.argv[1])
with open(sys.argv[2], "rb") as file:
    PAGE = file.read()

NAMES = ('xmlns:pwg="http://www.pwg.org/schemas/2010/12/sm" '
         'xmlns:scan="http://schemas.hp.com/imaging/escl/2011/05/03"')
INPUT = """<scan:MinWidth>16</scan:MinWidth><scan:MaxWidth>2550</scan:MaxWidth>
<scan:MinHeight>16</scan:MinHeight><scan:MaxHeight>3508</scan:MaxHeight><scan:MaxScanRegions>1</scan:MaxScanRegions>
<scan:SettingProfiles><scan:SettingProfile><scan:ColorModes><scan:ColorMode>RGB24</scan:ColorMode>
<scan:ColorMode>Grayscale8</scan:ColorMode></scan:ColorModes><scan:DocumentFormats>
<pwg:DocumentFormat>image/jpeg</pwg:DocumentFormat></scan:DocumentFormats><scan:SupportedResolutions>
<scan:DiscreteResolutions><scan:DiscreteResolution><scan:XResolution>75</scan:XResolution>
<scan:YResolution>75</scan:YResolution></scan:DiscreteResolution></scan:DiscreteResolutions>
</scan:SupportedResolutions></scan:SettingProfile></scan:SettingProfiles>"""
CAPABILITIES = f"""<?xml version="1.0" encoding="UTF-8"?>
<scan:ScannerCapabilities {NAMES}><pwg:Version>2.6</pwg:Version><pwg:MakeAndModel>Simulated</pwg:MakeAndModel>
<scan:Platen><scan:PlatenInputCaps>{INPUT}</scan:PlatenInputCaps></scan:Platen>
<scan:Adf><scan:AdfSimplexInputCaps>{INPUT}</scan:AdfSimplexInputCaps></scan:Adf></scan:ScannerCapabilities>"""
STATUS = f"""<?xml version="1.0" encoding="UTF-8"?>
<scan:ScannerStatus {NAMES}><pwg:Version>2.6</pwg:Version><pwg:State>Idle</pwg:State>
<scan:AdfState>ScannerAdfLoaded</scan:AdfState></scan:ScannerStatus>"""


class Scanner(http.server.BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    numbers = itertools.count(1)
    pages_left = {}  # by the path of the job

    def log_message(self, *_):
        pass

    def answer(self, code, body=b"", kind="text/xml", **headers):
        self.send_response(code)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(len(body)))
        for name, value in headers.items():
            self.send_header(name, value)
        self.end_headers()
        self.wfile.write(body)

    def do_GET(self):
        if self.path.endswith("/ScannerCapabilities"):
            return self.answer(200, CAPABILITIES.encode())
        if self.path.endswith("/ScannerStatus"):
            return self.answer(200, STATUS.encode())
        job = self.path.removesuffix("/NextDocument")
        if self.pages_left.get(job, 0) == 0:
            return self.answer(404)
        self.pages_left[job] -= 1
        self.answer(200, PAGE, "image/jpeg")

    def do_POST(self):
        body = self.rfile.read(int(self.headers.get("Content-Length", 0)))
        job = f"/eSCL/ScanJobs/{next(self.numbers)}"
        self.pages_left[job] = FEEDER_PAGES if re.search(b"InputSource>Feeder<", body) else 1
        self.answer(201, Location=f"http://{self.headers['Host']}{job}")

    def do_DELETE(self):
        self.pages_left.pop(self.path, None)
        self.answer(200)


server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Scanner)
threading.Thread(target=server.serve_forever, daemon=True).start()
print(server.server_address[1], flush=True)
sys.stdin.read()
