"""KeePass and KeePassXC: CSV exports told apart by the number of cells of the first row."""
from references.csv_dialect import keyed_records, rows_of
from references.errors import TextError
from references.records import always, assemble, imported_password


class Keepass:
    all_keys = ["Account", "Login Name", "Password", "Web Site", "Comments"]
    required_keys = ["Web Site", "Login Name", "Password"]


class KeepassXC:
    all_keys = ["Group", "Title", "Username", "Password", "URL", "Notes"]
    required_keys = ["URL", "Username", "Password"]


def fork_of(rows):
    if not rows:
        raise TextError("The provided CSV file does not have any fields")
    number_of_fields = len(rows[0])
    if number_of_fields == len(Keepass.all_keys):
        return Keepass
    if number_of_fields == len(KeepassXC.all_keys):
        return KeepassXC
    raise TextError("Unrecognized KeePass fork: the provided CSV file doesnt have the expected "
                    "number of fields for any supported fork")


def read(path):
    """Pairs of fork and record."""
    rows = rows_of(path)
    fork = fork_of(rows)
    for keys in (fork.all_keys, fork.required_keys):
        try:
            return [(fork, record) for record in keyed_records(rows, keys)]
        except TextError:
            pass
    raise TextError("The provided CSV field doesn't have the expected fields")


def build_keepass_original(record):
    account, web_site = record.get("Account"), record.get("Web Site")
    login_name, password = record.get("Login Name"), record.get("Password")
    if web_site is None or login_name is None or password is None:
        raise TextError("Record did not contain required fields")
    return imported_password(login_name, password, web_site, account)


def build_keepass_xc(record):
    title, url = record.get("Title"), record.get("URL")
    username, password = record.get("Username"), record.get("Password")
    if url is None or username is None or password is None:
        raise TextError("Record did not contain required fields")
    return imported_password(username, password, url, title)


def build_password(pair):
    fork, record = pair
    if fork is Keepass:
        return build_keepass_original(record)
    return build_keepass_xc(record)


def import_file(path):
    return assemble(read, path, [("passwords", always, build_password)])
