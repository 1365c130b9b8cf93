"""The Tirel export document, all or nothing: any missing or mistyped member fails the whole of it."""
from references.json_reader import JSONFailure, Number, parse_bytes


class DecodingError(Exception):
    pass


def text(value):
    if not isinstance(value, str):
        raise DecodingError("no text")
    return value


def integer(value):
    number = value.int64() if isinstance(value, Number) else None
    if number is None:
        raise DecodingError("no 64-bit integer")
    return number


def list_of(decode):
    def decode_list(value):
        if not isinstance(value, list):
            raise DecodingError("no array")
        return [decode(element) for element in value]
    return decode_list


def optional(decode):
    """Decode if present: a missing key and null are absent, any other type is an error."""
    def decode_if_present(value):
        return None if value is None else decode(value)
    decode_if_present.may_be_missing = True
    return decode_if_present


def keyed(members):
    def decode_object(value):
        if not isinstance(value, dict):
            raise DecodingError("no object")
        result = {}
        for key, decode in members:
            if key in value:
                result[key] = decode(value[key])
            elif getattr(decode, "may_be_missing", False):
                result[key] = None
            else:
                raise DecodingError("no " + key)
        return result
    return decode_object


password = keyed([("color", integer), ("custName", optional(text)), ("loginName", text), ("note", text),
                  ("pwd", text), ("pwdChange", optional(integer)), ("url", text)])
note = keyed([("color", integer), ("label", text), ("text", text)])
expiration_date = keyed([("day", integer), ("month", integer), ("year", integer)])
card = keyed([("cardNumber", text), ("custName", text), ("holderName", text), ("cvv", text), ("pin", text),
              ("note", text), ("expirationDate", expiration_date)])
export = keyed([("logins", list_of(password)), ("notes", list_of(note)), ("cards", list_of(card))])


def decode_export(data):
    """The decoded document, or None."""
    try:
        return export(parse_bytes(data))
    except (JSONFailure, DecodingError):
        return None


def password_record(login):
    record = {"username": login["loginName"], "password": login["pwd"], "url": login["url"],
              "note": login["note"], "color": login["color"]}
    if login["custName"] is not None:
        record["custName"] = login["custName"]
    if login["pwdChange"] is not None:
        record["pwdChange"] = login["pwdChange"]
    return record


def note_record(entry):
    return {"color": entry["color"], "label": entry["label"], "text": entry["text"]}


def card_record(entry):
    date = entry["expirationDate"]
    return {"cardNumber": entry["cardNumber"], "custName": entry["custName"], "holderName": entry["holderName"],
            "cvv": entry["cvv"], "pin": entry["pin"], "note": entry["note"],
            "expirationDay": date["day"], "expirationMonth": date["month"], "expirationYear": date["year"]}
