CREATE TABLE moz_logins (id INTEGER PRIMARY KEY,hostname TEXT NOT NULL,httpRealm TEXT,formSubmitURL TEXT,usernameField TEXT NOT NULL,passwordField TEXT NOT NULL,encryptedUsername TEXT NOT NULL,encryptedPassword TEXT NOT NULL,guid TEXT,encType INTEGER, timeCreated INTEGER, timeLastUsed INTEGER, timePasswordChanged INTEGER, timesUsed INTEGER);
CREATE TABLE moz_disabledHosts (id INTEGER PRIMARY KEY, hostname TEXT UNIQUE ON CONFLICT REPLACE);
CREATE TABLE moz_deleted_logins (id INTEGER PRIMARY KEY, guid TEXT, timeDeleted INTEGER);
CREATE INDEX moz_logins_hostname_index ON moz_logins (hostname);
CREATE INDEX moz_logins_hostname_formSubmitURL_index ON moz_logins (hostname, formSubmitURL);
CREATE INDEX moz_logins_hostname_httpRealm_index ON moz_logins (hostname, httpRealm);
CREATE UNIQUE INDEX moz_logins_guid_index ON moz_logins (guid);
CREATE INDEX moz_logins_encType_index ON moz_logins (encType);
PRAGMA user_version = 5;
