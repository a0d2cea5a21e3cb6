"""Writes the update feed, in the form that docs/Updates.md describes."""

import datetime
import email.utils
import os
import xml.etree.ElementTree as ElementTree

PREFIX = "sparkle"
NAMESPACE = "urn:tarnwick:feed"
DEBIAN_PACKAGE = "application/vnd.debian.binary-package"

ElementTree.register_namespace(PREFIX, NAMESPACE)


class AppcastError(Exception):
    """What is wrong with a feed, as one English sentence."""


def item(release, notes, package, url, signature):
    """The element for a release: its notes in HTML, and the file of the package with the address it
    will have and its signature."""
    element = ElementTree.Element("item")
    add(element, "title", f"Tarnwick {release.version}")
    add(element, named("version"), release.version)
    add(element, named("shortVersionString"), release.version)
    day = datetime.datetime.combine(release.date, datetime.time(), datetime.timezone.utc)
    add(element, "pubDate", email.utils.format_datetime(day))
    add(element, "description", notes)
    ElementTree.SubElement(
        element,
        "enclosure",
        {
            "url": url,
            "length": str(os.path.getsize(package)),
            "type": DEBIAN_PACKAGE,
            named("os"): "linux",
            named("edSignature"): signature,
        },
    )
    return element


def feed(new_item, before=None):
    """The text of a feed with this item first and, where there is one before, the items of that. An
    item of the same version goes."""
    rss = ElementTree.Element("rss", {"version": "2.0"})
    channel = ElementTree.SubElement(rss, "channel")
    add(channel, "title", "Tarnwick")
    channel.append(new_item)
    version = new_item.findtext(named("version"))
    for old in items_of(before) if before else []:
        if old.findtext(named("version")) != version:
            channel.append(old)
    ElementTree.indent(rss)
    return '<?xml version="1.0" encoding="UTF-8"?>\n' + ElementTree.tostring(rss, "unicode") + "\n"


def items_of(path):
    try:
        root = ElementTree.parse(path).getroot()
    except ElementTree.ParseError as error:
        raise AppcastError(f"{path} is not XML: {error}.") from error
    if root.tag != "rss" or root.find("channel") is None:
        raise AppcastError(f"{path} is not RSS.")
    items = root.findall("./channel/item")
    if any(not found.findtext(named("version")) for found in items):
        raise AppcastError(f"{path} has an item without a version.")
    return items


def add(parent, tag, text):
    ElementTree.SubElement(parent, tag).text = text


def named(name):
    return f"{{{NAMESPACE}}}{name}"
