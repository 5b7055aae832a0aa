#!/usr/bin/env python3
"""Builds the Debian package, examines it, installs it, starts it and removes it:  check.py BUILD ID

Installing needs root, or sudo that asks nothing.
"""
import os
import pathlib
import re
import shutil
import subprocess
import sys

sys.dont_write_bytecode = True
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "tests" / "window"))
from desktop import Desktop  # noqa: E402

SIZES = (16, 22, 24, 32, 48, 64, 128, 256, 512)
# Where the desktop keeps the names of file types; made anew when a package comes or goes.
GLOBS = pathlib.Path("/usr/share/mime/globs2")


def run(*command, **options):
    return subprocess.run(command, check=True, text=True, **options)


def output(*command):
    return run(*command, capture_output=True).stdout


def as_root(*command):
    run(*(command if os.geteuid() == 0 else ("sudo", "-n", *command)), stdout=subprocess.DEVNULL)


def build(folder):
    """The package, made anew."""
    shutil.rmtree(folder / "package", ignore_errors=True)
    run("cpack", "-G", "DEB", cwd=folder, stdout=subprocess.DEVNULL)
    (package,) = (folder / "package").glob("*.deb")
    return package


def unpacked(package, folder):
    shutil.rmtree(folder, ignore_errors=True)
    run("dpkg-deb", "-x", str(package), str(folder))
    return folder / "usr"


def check_files(usr, name):
    """Every file is there, and every part bears the one id."""
    share = usr / "share"
    expected = [usr / "bin/tessaril", share / f"applications/{name}.desktop",
                share / f"metainfo/{name}.metainfo.xml", share / f"mime/packages/{name}.xml",
                share / "man/man1/tessaril.1.gz", share / "doc/tessaril/copyright",
                share / "doc/tessaril/changelog.gz", share / "doc/tessaril/html/index.html",
                share / "doc/tessaril/html/running.html", share / "doc/tessaril/examples/saltmere.tessaril",
                share / f"icons/hicolor/scalable/apps/{name}.svg"]
    for size in SIZES:
        theme = share / f"icons/hicolor/{size}x{size}"
        for icon in (theme / f"apps/{name}.png", theme / "mimetypes/application-x-tessaril-project.png"):
            expected.append(icon)
            head = icon.read_bytes()[16:24]
            assert head == size.to_bytes(4, "big") * 2, f"{icon} is not {size} pixels wide and high"
    missing = [str(path) for path in expected if not path.is_file()]
    assert not missing, missing
    entry = (share / f"applications/{name}.desktop").read_text()
    assert f"Icon={name}\n" in entry and "MimeType" not in entry, entry


def check_screenshots(usr, name):
    """The metainfo tells the size of each screenshot, which is one of the manual's pictures."""
    text = (usr / f"share/metainfo/{name}.metainfo.xml").read_text()
    found = re.findall(r'<image width="(\d+)" height="(\d+)">.*/([\w-]+\.png)</image>', text)
    assert len(found) >= 3, text
    for width, height, picture in found:
        head = (usr / "share/doc/tessaril/html/pictures" / picture).read_bytes()[16:24]
        assert head == int(width).to_bytes(4, "big") + int(height).to_bytes(4, "big"), picture


def check_with_tools(package, usr, name):
    run("desktop-file-validate", str(usr / f"share/applications/{name}.desktop"))
    run("appstreamcli", "validate", "--no-net", "--pedantic",
        str(usr / f"share/metainfo/{name}.metainfo.xml"))
    run("lintian", "--fail-on", "error", "--allow-root", str(package))
    warnings = run("man", "--warnings", "-l", str(usr / "share/man/man1/tessaril.1.gz"),
                   capture_output=True, env=dict(os.environ, MANROFFSEQ="", LC_ALL="C.UTF-8")).stderr
    assert not warnings, warnings


def check_mime_type(usr, folder):
    """The desktop knows a project by its name, as a ZIP archive of its own kind."""
    database = folder / "mime"
    shutil.copytree(usr / "share/mime", database)
    run("update-mime-database", str(database), stderr=subprocess.DEVNULL)
    assert "application/x-tessaril-project:*.tessaril" in (database / "globs").read_text()
    assert "application/x-tessaril-project application/zip" in (database / "subclasses").read_text()


def traces():
    """The files and folders of the machine that bear the program's name."""
    found = set()
    for top in ("/usr", "/etc", "/opt", "/var"):
        for folder, folders, names in os.walk(top):
            found.update(os.path.join(folder, each) for each in (*folders, *names)
                         if "tessaril" in each.lower())
    return found


def cached():
    return GLOBS.read_text() if GLOBS.exists() else ""


def check_installed(package):
    before = traces()
    caches = cached()
    as_root("dpkg", "-i", str(package))
    try:
        with Desktop() as desktop:
            program = desktop.start("/usr/bin/tessaril")
            desktop.wait_for_title("Tessaril")
            assert desktop.xdotool("search", "--class", "tessaril"), "the window's class is another"
            program.terminate()
            program.wait(timeout=30)
        assert traces() > before and cached() != caches
    finally:
        as_root("dpkg", "--purge", "tessaril")
    assert traces() == before, f"left behind: {sorted(traces() ^ before)}"
    assert cached() == caches, "the desktop still knows the type of a project"


def main():
    folder, name = pathlib.Path(sys.argv[1]).resolve(), sys.argv[2]
    package = build(folder)
    usr = unpacked(package, pathlib.Path("unpacked").resolve())
    check_files(usr, name)
    check_screenshots(usr, name)
    check_with_tools(package, usr, name)
    check_mime_type(usr, pathlib.Path(".").resolve())
    fields = output("dpkg-deb", "-f", str(package), "Depends")
    for library in ("libqt6widgets6", "libqt6svg6", "libqt6network6"):
        assert library in fields, fields
    check_installed(package)
    print(f"{package.name} comes, runs and goes.")


if __name__ == "__main__":
    main()
