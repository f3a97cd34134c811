#!/bin/sh
# Installs VS Code for the browser, and what drives the browser, below this directory. Needs Node.js 20
# with its headers, a C++ compiler and Python. Only the native modules that are used are built: the
# scripts of the others fetch from places that may not be reached.
set -eu
cd "$(dirname "$0")"
[ -f node_modules/.complete ] && exit 0
export npm_config_nodedir="${npm_config_nodedir:-/usr}"
npm install --ignore-scripts --no-audit --no-fund
npm rebuild argon2
cd node_modules/code-server/lib/vscode
npm install --ignore-scripts --omit=dev --no-audit --no-fund
(cd extensions && npm install --ignore-scripts --omit=dev --no-audit --no-fund)
npm rebuild @vscode/spdlog @parcel/watcher native-watchdog @vscode/deviceid
cd ../../../..
touch node_modules/.complete
