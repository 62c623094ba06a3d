# SPDX-License-Identifier: GPL-3.0-or-later
"""A client that looks over FTP on port 2121, in all ways that it can think of, for what has a dot in front of its name
in a repository, or comes to have one meanwhile: hiddennames.py REPOSITORY"""
import os, shutil, sys
from ftplib import FTP
os.chdir(sys.argv[1])
ftp = FTP(); ftp.connect("127.0.0.1", 2121, 20); ftp.login()

def answer(*commands):
    """What the last one brings to light: lines, a number, or a folder that one gets into."""
    try:
        for command in commands[:-1]: ftp.sendcmd(command)
        if commands[-1].split()[0] in ("RETR", "LIST", "NLST", "MLSD"):
            lines = []; ftp.retrlines(commands[-1], lines.append); return " ".join(lines)
        lines = ftp.sendcmd(commands[-1]).splitlines()
        return " ".join(lines[1:-1] if commands[-1].startswith("STAT") else lines)
    except Exception as error:
        assert str(error)[:3] in ("500", "550"), error
        return ""
    finally: ftp.cwd("/")

def leaks(folder, file):
    """The ways in which something of the folder, which is named from the root, is seen."""
    ways = []
    parts = folder.split("/")
    for level in range(len(parts)):
        there = ["CWD " + "/".join(parts[:level])] if level else []
        rest = "/".join(parts[level:])
        for path in (rest, "./" + rest, rest.replace("/", "//"), rest.replace("/", "/./"), rest + "/../" + parts[-1]):
            for verb in ("CWD", "LIST", "LIST -a", "NLST", "MLSD", "STAT", "SIZE", "MDTM"):
                ways.append(there + [verb + " " + path])
            ways += [there + [verb + " " + path + "/" + file] for verb in ("RETR", "SIZE", "MDTM", "LIST", "STAT")]
    ways += [[verb + " /" + folder + "/" + file] for verb in ("RETR", "SIZE", "MDTM")]
    ways += [["CWD " + "/".join(parts[:-1]), "CWD " + parts[-1], "RETR " + file]]
    return sorted({way[-1].split()[0] for way in ways if answer(*way)})

def hide(folder, file, text="secret"):
    os.makedirs(folder, exist_ok=True)
    open(folder + "/" + file, "w").write(text)

hide("dists/.git/deep", "file"); hide("dists/birch/.x", "file")
places = (("pool/.git", "config"), ("dists/.git/deep", "file"), ("dists/birch/.x", "file"))
print("before:", *[leaks(*place) for place in places])
hide("pool/main/.late/deep", "file"); hide("pool/main/f/...", "file")
places = (("pool/main/.late", "deep"), ("pool/main/.late/deep", "file"), ("pool/main/f/...", "file"))
print("late:", *[leaks(*place) for place in places])
hide("pool/main/seen", "file")
print("seen:", leaks("pool/main/seen", "file"))
ftp.cwd("/pool/main/seen"); os.rename("pool/main/seen", "pool/main/.seen")
try: print("renamed:", ftp.sendcmd("SIZE file"))
except Exception as error: print("renamed:", str(error)[:3])
ftp.cwd("/"); os.symlink("../.git", "pool/main/link")
print("link:", leaks("pool/main/link", "config"))
for folder in ("dists", "pool", "pool/main", "dists/birch"):
    names = [os.path.basename(path) for path in answer("NLST -a " + folder).split()]
    print("listed in " + folder + ":", *[name for name in names if name.startswith(".") and name.strip(".")])
for folder in ("dists/.git", "dists/birch/.x", "pool/main/.late", "pool/main/f/...", "pool/main/.seen"):
    shutil.rmtree(folder)
os.remove("pool/main/link")
