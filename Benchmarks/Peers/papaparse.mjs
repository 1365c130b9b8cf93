#!/usr/bin/env -S node --max-old-space-size=12288
// Papa Parse.  usage: papaparse.mjs SOURCE FILE, with its folder in RELLINOR_NODE_MODULES

import { readFileSync, writeFileSync } from "node:fs";
import { createRequire } from "node:module";

const Papa = createRequire(`${process.env.RELLINOR_NODE_MODULES}/`)("papaparse");
const identifier = /\{[0-9a-f]{8}(-[0-9a-f]{4}){3}-[0-9a-f]{12}\}/i;

function login(username, password, url, service) {
    return { username, password, url, service };
}

function lastPass(rows, { logins, notes }) {
    for (const [url, username, password, extra, name] of rows.slice(1)) {
        if (url === "http://sn") {
            if (extra !== "" || name !== "") {
                notes.push({ title: name, content: extra });
            }
        } else if (url !== "" || username !== "" || password !== "" || name !== "") {
            logins.push(login(username, password, url, name));
        }
    }
}

function keePass(rows, { logins }) {
    for (const [title, username, password, url] of rows.slice(1)) {
        logins.push(login(username, password, url, title));
    }
}

function keePassXC(rows, { logins }) {
    for (const [, title, username, password, url] of rows.slice(1)) {
        logins.push(login(username, password, url, title));
    }
}

function dashlane(rows, { logins }) {
    for (const row of rows) {
        if (row.length > 4 && !row.some((cell) => cell.includes("{") && identifier.test(cell))) {
            logins.push(login(row[2], row.at(-2), row[1], row[0]));
        }
    }
}

function status(name) {
    const line = readFileSync("/proc/self/status", "latin1").split("\n")
        .find((candidate) => candidate.startsWith(name));
    return Number(line.split(/\s+/)[1]) * 1024;
}

const [source, path] = process.argv.slice(2);
const fill = { lastPass, keePass, keePassXC, dashlane }[source];

writeFileSync("/proc/self/clear_refs", "5"); // the peak starts anew
const base = status("VmRSS");
const faultsBefore = process.resourceUsage().minorPageFault;
const start = process.hrtime.bigint();
const records = { logins: [], notes: [] };
fill(Papa.parse(readFileSync(path, "utf8"), { delimiter: ",", newline: "\n", skipEmptyLines: true }).data,
    records);
const seconds = Number(process.hrtime.bigint() - start) / 1e9;
const faults = process.resourceUsage().minorPageFault - faultsBefore;
const peak = status("VmHWM") - base;

let bytes = 0;
for (const record of [...records.logins, ...records.notes]) {
    for (const text of Object.values(record)) {
        bytes += Buffer.byteLength(text);
    }
}
console.log(seconds, peak, faults, records.logins.length, records.notes.length, 0, bytes);
