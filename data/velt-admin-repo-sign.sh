#!/bin/bash
# SPDX-License-Identifier: GPL-3.0-or-later
# velt-admin-repo-sign.sh SOURCE DESTINATION KEYID
#
# Writes a signed copy of the Debian package SOURCE to DESTINATION. The signature is the archive member _gpgorigin, a
# detached OpenPGP signature of the members debian-binary, control.tar* and data.tar*. It replaces an older one. KEYID
# is a key's fingerprint, or its last 16 or 8 digits. Exit code 0 means that DESTINATION is complete. Otherwise
# DESTINATION is unchanged, and one line of the error output tells the reason: exit code 2 when the key cannot be used,
# which is the same for every package, or else 1. SOURCE never changes.
set -euo pipefail
export LC_ALL=C

work=
trap '[ -z "$work" ] || rm -rf -- "$work"' EXIT
trap 'exit 143' HUP INT TERM

# fail TEXT [EXITCODE]
fail() {
    printf 'velt-admin-repo-sign.sh: %s\n' "${1//[$'\001'-$'\037\177']/?}" >&2
    exit "${2-1}"
}
# fail_key TEXT: reports a problem of the key
fail_key() {
    fail "$label: $1" 2
}

[ $# -eq 3 ] || fail "usage: velt-admin-repo-sign.sh SOURCE DESTINATION KEYID"
# A path with a folder cannot be read as an option by any program.
case $1 in /*) source=$1 ;; *) source=./$1 ;; esac
case $2 in /*) destination=$2 ;; *) destination=./$2 ;; esac
wanted=${3//[[:space:]]/}
wanted=${wanted^^}
wanted=${wanted#0X}
label="key $wanted"

[[ $wanted =~ ^([0-9A-F]{8}|[0-9A-F]{16}|[0-9A-F]{40})$ ]] \
    || fail "'$3' is no key id: the last 8 or 16 digits of a fingerprint are needed, or all 40" 2
[[ -f $source && -r $source ]] || fail "$1: no such file, or it may not be read"
[ ! -d "$destination" ] || fail "$2 is a folder"
[ ! "$source" -ef "$destination" ] || fail "$1: source and destination are the same file"
command -v gpg >/dev/null || fail_key "the program gpg is not installed"
work=$(mktemp -d -- "${destination%/*}/.sign.XXXXXXXX" 2>/dev/null) || fail "${2%/*}: no file can be written there"

# gpg must not ask on the terminal; its agent asks for the passphrase.
unset GPG_TTY
run_gpg() {
    gpg --batch --no-tty --yes "$@" 2>"$work/messages"
}
last_message() {
    sed -n 's/^gpg: //; $p' "$work/messages"
}

# --- the key -----------------------------------------------------------------------------------------------------

run_gpg --with-colons --list-secret-keys >"$work/keys" </dev/null \
    || fail_key "gpg cannot list the secret keys: $(last_message)"

# One entry for each key or subkey, with the index of its primary key.
kinds=() validities=() expiries=() capabilities=() tokens=() prints=() primaries=() names=()
primary=-1
while IFS=: read -r kind validity _ _ _ _ expires _ _ text _ capability _ _ token _; do
    case $kind in
        sec | ssb)
            kinds+=("$kind") validities+=("$validity") expiries+=("$expires") tokens+=("$token")
            capabilities+=("$capability") prints+=("") names+=("")
            [ "$kind" = ssb ] || primary=$((${#kinds[@]} - 1))
            primaries+=("$primary")
            ;;
        fpr) [ ${#prints[@]} -eq 0 ] || prints[-1]=$text ;;
        uid) [ "$primary" -lt 0 ] || [ -n "${names[primary]}" ] || names[primary]=${text//\\x3a/:} ;;
    esac
done <"$work/keys"

found=-1
for index in "${!prints[@]}"; do
    [[ ${prints[index]} == *"$wanted" ]] || continue
    [ "$found" -lt 0 ] || fail_key "several keys have this id; the whole fingerprint is needed"
    found=$index
done
[ "$found" -ge 0 ] || fail_key "there is no secret key with this id"
primary=${primaries[found]}
label="key $wanted (${names[primary]})"

# The reason why a key or subkey cannot be used; empty when it can.
obstacle() {
    local on=
    [[ ! ${expiries[$1]} =~ ^[0-9]+$ ]] || printf -v on ' on %(%Y-%m-%d)T' "${expiries[$1]}"
    case ${validities[$1]} in
        r) echo "it has been revoked" ;;
        e) echo "it expired$on" ;;
        i) echo "it is invalid" ;;
        *) [[ ${capabilities[$1]} != *D* ]] || echo "it is disabled" ;;
    esac
}
signs() {
    [[ ${capabilities[$1]} == *s* && ${tokens[$1]} != '#' ]]
}

reason=$(obstacle "$primary")
[ -z "$reason" ] || fail_key "$reason"
signer=-1
if signs "$found"; then
    reason=$(obstacle "$found")
    [ -z "$reason" ] || fail_key "$reason"
    signer=$found
elif [ "$found" -eq "$primary" ]; then
    # If the primary key cannot sign, a subkey does. The last one is the newest.
    for index in "${!kinds[@]}"; do
        if [ "$index" -ne "$primary" ] && [ "${primaries[index]}" -eq "$primary" ] && signs "$index" \
            && [ -z "$(obstacle "$index")" ]; then
            signer=$index
        fi
    done
fi
[ "$signer" -ge 0 ] || fail_key "it cannot sign, or its secret part is not on this machine"

# --- the package -------------------------------------------------------------------------------------------------

# part FILE OFFSET SIZE: prints bytes of a file
part() {
    dd if="$1" bs=1M skip="$2" count="$3" iflag=skip_bytes,count_bytes,fullblock status=none
}
no_package="$1: not a Debian package"
archive=$work/archive
size=$(stat -L -c %s -- "$source")
[ "$(part "$source" 0 8 | tr '\000\n' '?!')" = '!<arch>!' ] || fail "$no_package"
part "$source" 0 8 >"$archive"
offset=8
written=8
members='' offsets=() sizes=()
while [ "$offset" -lt "$size" ]; do
    header=$(part "$source" "$offset" 60 | tr '\000\n' '?!')
    member=${header:0:16}
    member=${member%% *}
    member=${member%/}
    length=${header:48:10}
    length=${length%% *}
    [[ ${header:58} == '`!' && $length =~ ^[0-9]{1,10}$ ]] || fail "$no_package, or it is damaged"
    length=$((10#$length))
    whole=$((60 + length + length % 2))
    # The padding of the last member may be missing.
    [ $((offset + 60 + length)) -le "$size" ] || fail "$1: the package is incomplete"
    if [ "$member" != _gpgorigin ]; then
        case $member in
            debian-binary | control.tar* | data.tar*)
                members+="${member%%.tar*} "
                offsets+=($((written + 60)))
                sizes+=("$length")
                ;;
            _*) ;;
            *) fail "$1: the package has a member that no package has" ;;
        esac
        part "$source" "$offset" $((60 + length)) >>"$archive"
        [ $((length % 2)) -eq 0 ] || echo >>"$archive"
        written=$((written + whole))
    fi
    offset=$((offset + whole))
done
[ "$members" = 'debian-binary control data ' ] || fail "$no_package"
dpkg-deb -f "$archive" Package >/dev/null 2>&1 || fail "$1: the control data of the package cannot be read"

# --- the signature -----------------------------------------------------------------------------------------------

signed_parts() {
    local index
    for index in 0 1 2; do
        part "$archive" "${offsets[index]}" "${sizes[index]}"
    done
}
# The exclamation mark makes gpg use exactly this key and no subkey of its choice.
if ! signed_parts | run_gpg --no-armor --no-textmode --digest-algo SHA512 --status-fd 3 \
    --local-user "${prints[signer]}!" --detach-sign --output "$work/signature" 3>"$work/status"; then
    hint=
    ! grep -q PINENTRY_LAUNCHED "$work/status" || hint=" (its passphrase was not given, or could not be asked for)"
    fail_key "gpg cannot sign: $(last_message)$hint"
fi
# The user's options can add signers, but the copy must have only the signature of the requested key.
made=$(sed -n 's/^\[GNUPG:\] SIG_CREATED D [0-9]* \([0-9]*\) 00 [^ ]* \([0-9A-F]*\).*/\1 \2/p' "$work/status")
[ "$made" = "10 ${prints[signer]}" ] || fail_key "gpg signed in another way or with another key than it was told to"

length=$(stat -c %s -- "$work/signature")
{
    printf '%-16s%-12s%-6s%-6s%-8s%-10s`\n' _gpgorigin "$(date +%s)" 0 0 100644 "$length"
    cat -- "$work/signature"
    [ $((length % 2)) -eq 0 ] || echo
} >>"$archive"
mv -fT -- "$archive" "$destination" 2>/dev/null || fail "$2: the file cannot be written"
