"""A server of updates on the loopback interface, with a certificate and a signing key of its own."""

import base64
import http.server
import os
import ssl
import subprocess
import threading

FEED = """<?xml version="1.0" encoding="utf-8"?>
<rss version="2.0" xmlns:sparkle="urn:feed"><channel><item>
<sparkle:version>{version}</sparkle:version>
<description>{notes}</description>
<enclosure url="{url}" length="{length}" sparkle:edSignature="{signature}"/>
</item></channel></rss>
"""

PACKAGE = "tarnwick_99.0_amd64.deb"

STANZA = """Package: tarnwick
Version: {version}
Architecture: amd64
Maintainer: Tests <tests@localhost>
Description: A package of the tests
"""


def _openssl(*arguments):
    return subprocess.run(
        ("openssl", *arguments), stdin=subprocess.DEVNULL, capture_output=True, check=True
    ).stdout


class UpdateServer:
    """Serves what a test puts there, until `end`."""

    def __init__(self, folder):
        os.makedirs(folder)
        self._folder = folder
        self._key = self._path("signing.pem")
        self.authority = self._path("certificate.pem")
        self._content = {}
        self._unfinished = set()
        self._ended = threading.Event()
        self.requests = []
        self._make_keys()
        self._server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), self._handler())
        self._server.daemon_threads = True
        context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        context.load_cert_chain(self.authority, self._path("certificate.key"))
        self._server.socket = context.wrap_socket(self._server.socket, server_side=True)
        self._thread = threading.Thread(target=self._server.serve_forever)
        self._thread.start()

    def _path(self, name):
        return os.path.join(self._folder, name)

    def _make_keys(self):
        _openssl("genpkey", "-algorithm", "ed25519", "-out", self._key)
        certificate = (
            "req -x509 -newkey ec -pkeyopt ec_paramgen_curve:prime256v1 -nodes -days 2 -subj "
            "/CN=Tests -addext subjectAltName=IP:127.0.0.1"
        )
        key = self._path("certificate.key")
        _openssl(*certificate.split(), "-keyout", key, "-out", self.authority)

    def _handler(self):
        server = self

        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(self):  # pylint: disable=invalid-name
                server.requests.append(self.path)
                content = server._content.get(self.path)
                if content is None:
                    self.send_error(404)
                    return
                self.send_response(200)
                self.send_header("Content-Length", str(len(content)))
                self.end_headers()
                if self.path in server._unfinished:
                    self.wfile.write(content[:-1])
                    self.wfile.flush()
                    server._ended.wait()
                else:
                    self.wfile.write(content)

            def log_message(self, format, *args):  # pylint: disable=redefined-builtin
                pass

        return Handler

    @property
    def public_key(self):
        """In Base64."""
        described = _openssl("pkey", "-in", self._key, "-pubout", "-outform", "DER")
        return base64.b64encode(described[-32:]).decode()

    def address(self, name):
        return f"https://127.0.0.1:{self._server.server_address[1]}{name}"

    @property
    def feed(self):
        return self.address("/appcast.xml")

    def signature(self, content):
        file = self._path("signed")
        with open(file, "wb") as output:
            output.write(content)
        signature = _openssl("pkeyutl", "-sign", "-rawin", "-inkey", self._key, "-in", file)
        return base64.b64encode(signature).decode()

    def package(self, version):
        """The bytes of a Debian package of this version."""
        control = self._path(f"{version}/DEBIAN/control")
        os.makedirs(os.path.dirname(control), exist_ok=True)
        with open(control, "w", encoding="utf-8") as file:
            file.write(STANZA.format(version=version))
        built = self._path(f"{version}.deb")
        command = ("dpkg-deb", "--build", self._path(version), built)
        subprocess.run(command, stdin=subprocess.DEVNULL, capture_output=True, check=True)
        with open(built, "rb") as file:
            return file.read()

    def serve(self, name, content):
        self._content[name] = content

    def never_finish(self):
        """Keeps the last byte of the package back."""
        self._unfinished.add(f"/{PACKAGE}")

    def offer(self, version, package, notes="", signed=None):
        """Puts the package there and a feed that offers it, signed as if it were `signed`."""
        self.serve(f"/{PACKAGE}", package)
        feed = FEED.format(
            version=version,
            notes=notes,
            url=self.address(f"/{PACKAGE}"),
            length=len(package),
            signature=self.signature(package if signed is None else signed),
        )
        self.serve("/appcast.xml", feed.encode())

    def end(self):
        self._ended.set()
        self._server.shutdown()
        self._server.server_close()
        self._thread.join()
