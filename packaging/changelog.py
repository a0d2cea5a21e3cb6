"""Reads CHANGELOG.md and words its sections for those who want them in another form.

Of Markdown it knows what stands there: sections, groups, items, and code between backticks."""

import datetime
import email.utils
import html
import os
import re
import textwrap
from typing import NamedTuple

HEADING = re.compile(r"## \[(?P<name>[^]]+)\](?: - (?P<date>\d{4}-\d\d-\d\d))?")


class Group(NamedTuple):
    """A heading such as "Added" with its items, each one line of text."""

    title: str
    items: list


class Release(NamedTuple):
    version: str
    date: datetime.date
    is_released: bool
    groups: list


class ChangelogError(Exception):
    """What is wrong with the file, as one English sentence."""


def read(path, version):
    """The releases that the file tells of, newest first. While there is no section for `version`,
    the one that is called "Unreleased" becomes "VERSION~dev", which sorts before it."""
    with open(path, encoding="utf-8") as file:
        lines = file.read().splitlines()
    sections = list(sections_of(lines))
    named = {name for name, _, _ in sections}
    releases = []
    for name, date, body in sections:
        if name == "Unreleased":
            if version in named:
                if groups_of(body):
                    raise ChangelogError(f'"Unreleased" has items although {version} has a section.')
                continue
            releases.append(Release(f"{version}~dev", today(path), False, groups_of(body)))
        elif date is None:
            raise ChangelogError(f"The section [{name}] has no date.")
        else:
            releases.append(Release(name, datetime.date.fromisoformat(date), True, groups_of(body)))
    if not releases or releases[0].version not in (version, f"{version}~dev"):
        raise ChangelogError(f"The first section is neither [Unreleased] nor [{version}].")
    return releases


def sections_of(lines):
    """Name, date and lines of each section, in the file's order."""
    starts = [index for index, line in enumerate(lines) if line.startswith("## ")]
    for start, end in zip(starts, starts[1:] + [len(lines)]):
        match = HEADING.fullmatch(lines[start].rstrip())
        if not match:
            raise ChangelogError(f'"{lines[start]}" is not a version heading.')
        yield match["name"], match["date"], lines[start + 1 : end]


def groups_of(body):
    """The groups that have items. What stands before the first heading is for readers of the
    file."""
    groups = []
    is_item = False
    for line in body:
        if line.startswith("### "):
            groups.append(Group(line[4:].strip(), []))
            is_item = False
        elif line.startswith("- ") and groups:
            groups[-1].items.append(line[2:].strip())
            is_item = True
        elif line.startswith("  ") and is_item:
            groups[-1].items[-1] += " " + line.strip()
        elif line.strip() and groups:
            raise ChangelogError(f'"{line}" is neither a heading nor an item.')
    return [group for group in groups if group.items]


def today(path):
    """The day that a reproducible build names, else the day on which the file was changed."""
    seconds = os.environ.get("SOURCE_DATE_EPOCH") or os.path.getmtime(path)
    return datetime.datetime.fromtimestamp(int(seconds), datetime.timezone.utc).date()


def plain(item):
    return item.replace("`", "")


def as_html(release):
    """The body of release notes, for the update feed."""
    parts = []
    for group in release.groups:
        items = "".join(f"<li>{coded(item, 'code')}</li>\n" for item in group.items)
        parts.append(f"<h3>{html.escape(group.title)}</h3>\n<ul>\n{items}</ul>\n")
    return "".join(parts)


def coded(item, element):
    return re.sub("`([^`]*)`", rf"<{element}>\1</{element}>", html.escape(item, quote=False))


def as_appstream(releases):
    """The element of AppStream metadata."""
    lines = ["  <releases>"]
    for release in releases:
        kind = "stable" if release.is_released else "development"
        lines.append(f'    <release version="{release.version}" date="{release.date}" type="{kind}">')
        lines.append("      <description>")
        for group in release.groups:
            lines.append(f"        <p>{html.escape(group.title)}:</p>")
            lines.append("        <ul>")
            lines += [f"          <li>{coded(item, 'code')}</li>" for item in group.items]
            lines.append("        </ul>")
        lines += ["      </description>", "    </release>"]
    lines.append("  </releases>")
    return "\n".join(lines)


def as_debian(releases, package, revision, maintainer):
    """A changelog as Debian packages carry it."""
    entries = []
    for release in releases:
        distribution = "stable" if release.is_released else "UNRELEASED"
        day = datetime.datetime.combine(release.date, datetime.time(), datetime.timezone.utc)
        items = [
            textwrap.fill(plain(item), 76, initial_indent="  * ", subsequent_indent="    ")
            for group in release.groups
            for item in group.items
        ]
        entries.append(
            f"{package} ({release.version}-{revision}) {distribution}; urgency=medium\n\n"
            + "\n".join(items)
            + f"\n\n -- {maintainer}  {email.utils.format_datetime(day)}\n"
        )
    return "\n".join(entries)
