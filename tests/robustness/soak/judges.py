"""Checks that use no code of this project: each function returns what is wrong, or None."""
import plistlib

SWITCHES = """kAccountEnabled kPasscodeDisabled kHideApps kRestrictUninstall kRestrictDrag kRestrictEdit kRestrictCC
kRestrictNC kRestrictSwitcher kRestrictSwitcherContacts kRestrictCamera kRestrictVideo kRestrictSiri kRestrictKeyboard
kRestrictResponders kRestrictVolume kRestrictVibrate kRestrictPowerDown""".split()
TOP = {"kEnabled": bool, "kPasscode": str, "kAccounts": list}
RECORD = {"kAccountName": str, "kAppsRestricted": list} | {key: bool for key in SWITCHES}

# A process that does the same things over and over is judged from this many rests on. An allocator may then keep this
# much more at one rest than at another.
FEWEST_RESTS = 9
MOST_BYTES = 512 * 1024


def document_problem(data):
    """Whether the bytes are a whole preferences document."""
    try:
        document = plistlib.loads(data)
    except Exception as error:
        return f"no property list: {error!r}"
    if not data.endswith(b"</plist>\n"):
        return "something follows the property list"
    if not isinstance(document, dict):
        return "no dictionary"
    for key, kind in TOP.items():
        if not isinstance(document.get(key), kind):
            return f"{key} is {document.get(key)!r}"
    if not document["kAccounts"]:
        return "no account"
    return next(filter(None, map(record_problem, document["kAccounts"])), None)


def record_problem(record):
    if not isinstance(record, dict):
        return f"{record!r} is not an account"
    if record.keys() != RECORD.keys():
        return f"an account has other keys: {sorted(record.keys() ^ RECORD.keys())}"
    for key, kind in RECORD.items():
        if not isinstance(record[key], kind):
            return f"{key} of an account is {record[key]!r}"
    if not all(isinstance(identifier, str) for identifier in record["kAppsRestricted"]):
        return f"kAppsRestricted contains something else than texts: {record['kAppsRestricted']}"
    return None


def order_problem(sent, received):
    """Whether what one has sent has arrived at another, once and in order."""
    for number, (one, other) in enumerate(zip(sent, received)):
        if one != other:
            return f"number {number} of {len(sent)} is {other}, not {one}"
    return None if len(sent) == len(received) else f"{len(received)} arrived of {len(sent)}"


def merge_problem(one, other, merged):
    """Whether what two have sent has arrived at a third, once and each in its own order, however they are interleaved."""
    if len(one) + len(other) != len(merged):
        return f"{len(merged)} arrived of {len(one)} and {len(other)}"
    taken = {0}  # how many of `one` may have been used up so far
    for number, element in enumerate(merged):
        taken = ({n + 1 for n in taken if n < len(one) and one[n] == element}
                 | {n for n in taken if number - n < len(other) and other[number - n] == element})
        if not taken:
            return f"number {number} of {len(merged)} is {element}"
    return None


def growth_problem(rests, memory_counts=True):
    """Whether a process takes more and more of the machine; its rests are pairs of bytes and open descriptors.

    The least of the last third counts, and the most of the first: what is given back has not been lost.
    """
    if len(rests) < FEWEST_RESTS:
        return None
    third = len(rests) // 3
    bytes_more, descriptors_more = (min(last) - max(first)
                                    for first, last in zip(zip(*rests[:third]), zip(*rests[-third:])))
    if memory_counts and bytes_more > MOST_BYTES:
        return f"{bytes_more} bytes more in its last third than in its first"
    return f"{descriptors_more} descriptors more in its last third than in its first" if descriptors_more > 0 else None
