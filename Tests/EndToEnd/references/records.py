"""The records as the tool prints them, and the assembly that all importers share."""
from references.errors import TextError, Thrown, error_object


def imported_password(username, password, url, service=None, color=None, note=None, pwd_change=None):
    return {"username": username, "password": password, "url": url, "service": service,
            "color": color, "note": note, "pwdChange": pwd_change}


def imported_note(color, title, content):
    return {"color": color, "title": title, "content": content}


def imported_card(card_number, cust_name, holder_name, cvv, pin, note, day, month, year):
    return {"cardNumber": card_number, "custName": cust_name, "holderName": holder_name,
            "cvv": cvv, "pin": pin, "note": note,
            "expirationDay": day, "expirationMonth": month, "expirationYear": year}


def always(record):
    return True


def assemble(read, path, kinds):
    """kinds: (list, predicate, builder) in the order in which the predicates are asked."""
    try:
        raw_records = read(path)
    except Thrown as error:
        return error_object(error)
    result = {"passwords": [], "notes": [], "cards": []}
    for record in raw_records:
        for name, holds, build in kinds:
            if holds(record):
                try:
                    result[name].append(build(record))
                except TextError:
                    pass            # dropped, and not tried as another kind
                break
    return result
