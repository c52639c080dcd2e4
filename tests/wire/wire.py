"""What tests of the wire share: a small CIM-XML client and servers to start."""
import argparse
import base64
import functools
import http.client
import pathlib
import re
import socket
import ssl
import subprocess
import urllib.parse
import xml.etree.ElementTree as ElementTree


HERE = pathlib.Path(__file__).resolve().parent


def message(call):
    return ('<?xml version="1.0" encoding="utf-8"?><CIM CIMVERSION="2.0" DTDVERSION="2.0">'
            '<MESSAGE ID="1" PROTOCOLVERSION="1.0"><SIMPLEREQ>' + call +
            '</SIMPLEREQ></MESSAGE></CIM>')


def enumeration(class_name, method="EnumerateInstances"):
    return message(f'<IMETHODCALL NAME="{method}"><LOCALNAMESPACEPATH><NAMESPACE NAME="root"/>'
                   '<NAMESPACE NAME="qrv"/></LOCALNAMESPACEPATH><IPARAMVALUE NAME="ClassName">'
                   f'<CLASSNAME NAME="{class_name}"/></IPARAMVALUE></IMETHODCALL>')


def quoted(text):
    return '"' + text.replace("\\", "\\\\").replace('"', '\\"') + '"'


def key_text(element):
    if element.tag == "VALUE.REFERENCE":
        return quoted(path_text(element[0]))
    is_string = element.get("VALUETYPE", "string") == "string"
    return quoted(element.text or "") if is_string else element.text


def path_text(element):
    """The text form of a name or path of an instance or class."""
    host = element.findtext("NAMESPACEPATH/HOST")
    spaces = [e.get("NAME") for e in element.findall("LOCALNAMESPACEPATH/NAMESPACE") +
              element.findall("NAMESPACEPATH/LOCALNAMESPACEPATH/NAMESPACE")]
    where = (f"//{host}/" if host else "") + ("/".join(spaces) + ":" if spaces else "")
    name = element[-1] if spaces else element
    keys = [f'{key.get("NAME")}={key_text(key[0])}' for key in name]
    return where + name.get("CLASSNAME", name.get("NAME")) + ("." + ",".join(keys) if keys else "")


def cim_headers(body):
    """CIMMethod and CIMObject as the message in `body` has them."""
    call = ElementTree.fromstring(body).find("MESSAGE/SIMPLEREQ")[0]
    if call.tag == "METHODCALL":
        target = path_text(call[0])
    else:
        target = "/".join(n.get("NAME") for n in call[0].iter("NAMESPACE"))
    return {"Content-Type": "application/xml; charset=utf-8", "CIMOperation": "MethodCall",
            "CIMMethod": urllib.parse.quote(call.get("NAME")),
            "CIMObject": urllib.parse.quote(target)}


def authorization(user):
    return {"Authorization": "Basic " + base64.b64encode(user.encode()).decode()} if user else {}


def body_of(response):
    """A refusal may say no length although nothing follows it and the connection stays open."""
    refused = response.status >= 400 and response.length is None and not response.chunked
    return "" if refused else response.read().decode()


class Server:
    """A server that runs elsewhere, or one that start() has started."""

    def __init__(self, url, user, process=None):
        parts = urllib.parse.urlsplit(url)
        self.host, self.port, self.user, self.process = parts.hostname, parts.port, user, process
        self.tls = ssl._create_unverified_context() if parts.scheme == "https" else None

    @functools.cached_property
    def realm(self):
        """The server's own name, which it tells strangers."""
        refusal = self.post(enumeration("CIM_ManagedElement"), user="nobody:nothing")
        return refusal.getheader("WWW-Authenticate").split('"')[1]

    def connection(self, timeout=20, source=None):
        """An HTTP connection; `source` is an address of this machine to call from."""
        origin = (source, 0) if source else None
        if self.tls:
            return http.client.HTTPSConnection(self.host, self.port, timeout=timeout, context=self.tls,
                                               source_address=origin)
        return http.client.HTTPConnection(self.host, self.port, timeout=timeout, source_address=origin)

    def socket(self, timeout=20, source=None):
        plain = socket.create_connection((self.host, self.port), timeout, (source, 0) if source else None)
        return self.tls.wrap_socket(plain, suppress_ragged_eofs=False) if self.tls else plain

    def post(self, body, headers=None, connection=None, user=None, source=None):
        """The response to a message, read whole; its text is in `.text`."""
        used = connection or self.connection(source=source)
        try:
            used.request("POST", "/cimom", body.encode(), {
                **cim_headers(body), **authorization(user or self.user), **(headers or {})})
            response = used.getresponse()
            response.text = body_of(response)
            return response
        finally:
            if used is not connection:
                used.close()

    def stop(self, timeout=20):
        if not self.process:
            return 0
        self.process.terminate()
        code = self.process.wait(timeout)
        self.process.stdout.close()
        return code


def start(command, user, **options):
    """Starts a server that tells its URL in the first line of its output."""
    process = subprocess.Popen(command, stdout=subprocess.PIPE, text=True, **options)
    line = process.stdout.readline()
    url = re.search(r"https?://\S+", line)
    if not url:
        raise RuntimeError(f"{command[0]} did not start: {line!r}")
    return Server(url.group(), user, process)


def certificate(folder):
    """The files of a new certificate for this machine and of its key."""
    files = [str(folder / name) for name in ("certificate.pem", "key.pem")]
    subprocess.run(["openssl", "req", "-x509", "-newkey", "rsa:2048", "-nodes", "-days", "2",
                    "-subj", "/CN=localhost", "-addext", "subjectAltName=DNS:localhost,IP:127.0.0.1",
                    "-out", files[0], "-keyout", files[1]], check=True, capture_output=True)
    return files


def options(description=None):
    """A parser of what every test against a whole server is told: which one."""
    parser = argparse.ArgumentParser(description=description,
                                     formatter_class=argparse.RawTextHelpFormatter)
    where = parser.add_mutually_exclusive_group(required=True)
    where.add_argument("--server", help="the program to start, with the array in array.json")
    where.add_argument("--url", help="where a server listens that serves the same array")
    parser.add_argument("--user", default="admin:admin", help="user:password")
    return parser


def chosen(arguments):
    """The server that the options name."""
    if arguments.url:
        return Server(arguments.url, arguments.user)
    return start([arguments.server, "--port", "0", "--listen", "127.0.0.1",
                  "--array", str(HERE / "array.json")], arguments.user)
