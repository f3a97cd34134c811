// Runs VS Code with the packed extension in a browser and looks at the page: what a user sees of a
// program with mistakes. The extension runs the program that it comes with, unless another one is on the
// PATH. usage: node run.mjs VSIX [DIRECTORY-FOR-PICTURES]
import { execFileSync, spawn } from 'node:child_process';
import { cpSync, mkdirSync, mkdtempSync, rmSync, writeFileSync } from 'node:fs';
import { createServer } from 'node:net';
import { tmpdir } from 'node:os';
import path from 'node:path';
import { fileURLToPath } from 'node:url';
import puppeteer from 'puppeteer-core';

const [vsix, pictures] = process.argv.slice(2).map((name) => path.resolve(name));
const here = path.dirname(fileURLToPath(import.meta.url));
const examples = path.join(here, '../../../examples/update');
const work = mkdtempSync(path.join(tmpdir(), 'tarka-vscode-'));
const codeServer = path.join(here, 'node_modules/code-server/out/node/entry.js');
const folders = ['--user-data-dir', path.join(work, 'user'), '--extensions-dir', path.join(work, 'extensions')];

function freePort() {
  return new Promise((resolve) => {
    const server = createServer().listen(0, '127.0.0.1', () => {
      const { port } = server.address();
      server.close(() => resolve(port));
    });
  });
}

function prepare() {
  cpSync(examples, path.join(work, 'project'), { recursive: true });
  mkdirSync(path.join(work, 'user/User'), { recursive: true });
  const settings = {
    'security.workspace.trust.enabled': false,
    'workbench.startupEditor': 'none',
    'workbench.tips.enabled': false,
    'telemetry.telemetryLevel': 'off',
    'window.commandCenter': false,
    'editor.hover.delay': 100,
    'editor.minimap.enabled': false,
    'workbench.colorTheme': 'Default Light Modern',
  };
  writeFileSync(path.join(work, 'user/User/settings.json'), JSON.stringify(settings));
  execFileSync('node', [codeServer, ...folders, '--install-extension', vsix], { stdio: 'inherit' });
}

async function startServer(port) {
  const server = spawn('node', [codeServer, ...folders, '--auth', 'none', '--bind-addr', `127.0.0.1:${port}`,
    '--disable-telemetry', '--disable-update-check', '--disable-workspace-trust', '--disable-getting-started-override',
    path.join(work, 'project')], { stdio: ['ignore', 'pipe', 'inherit'] });
  await new Promise((resolve, reject) => {
    server.stdout.on('data', (text) => String(text).includes('HTTP server listening') && resolve());
    server.on('exit', (status) => reject(new Error(`code-server has ended with ${status}`)));
  });
  return server;
}

class Editor {
  constructor(page) {
    this.page = page;
  }

  async command(text) {
    await this.page.keyboard.press('F1');
    await this.page.waitForSelector('.quick-input-widget input', { visible: true });
    await this.page.keyboard.type(text);
    await this.page.waitForFunction((wanted) => document.querySelector('.quick-input-list .focused')?.textContent.includes(wanted), {}, text);
    await this.page.keyboard.press('Enter');
  }

  /** Opens a file of the project, at a line and column, from 1. */
  async open(file, line = 1, column = 1) {
    const entry = await this.page.waitForSelector(`.explorer-viewlet [aria-label="${file}"]`);
    await entry.click({ count: 2 });
    await this.page.waitForFunction((wanted) => document.querySelector('.tab.active')?.textContent.includes(wanted), {}, file);
    await this.page.keyboard.down('Control');
    await this.page.keyboard.press('g');
    await this.page.keyboard.up('Control');
    await this.page.waitForSelector('.quick-input-widget input', { visible: true });
    await this.page.keyboard.type(`${line}:${column}`);
    // On a slow machine the list follows the typing.
    await this.page.waitForFunction((wanted) => document.querySelector('.quick-input-list')?.textContent.includes(wanted), {}, `line ${line} and character ${column}`);
    await this.page.keyboard.press('Enter');
    await this.page.waitForFunction((wanted) => document.querySelector('.statusbar')?.textContent.includes(wanted), {}, `Ln ${line}, Col ${column}`);
  }

  /** Waits until some element of the page has the text. */
  async see(selector, text) {
    await this.page.waitForFunction(
      (where, what) => [...document.querySelectorAll(where)].some((one) => one.textContent.replaceAll('\u00a0', ' ').includes(what)),
      {}, selector, text);
    console.log(`seen: ${text}`);
  }

  /** Waits until the frame of a panel has drawn a graph. */
  async seeGraph() {
    for (let tries = 0; tries < 90; ++tries) {
      for (const frame of this.page.frames())
        if (await frame.$('svg polygon').catch(() => null)) return console.log('seen: a graph');
      await new Promise((resolve) => setTimeout(resolve, 1000));
    }
    throw new Error('no graph is drawn');
  }

  async picture(name) {
    // What appears fades in.
    await new Promise((resolve) => setTimeout(resolve, 500));
    if (pictures) await this.page.screenshot({ path: path.join(pictures, `${name}.png`) });
  }
}

async function look(editor) {
  await editor.open('CUSTUPDX.cbl', 133, 21);
  await editor.page.waitForSelector('.squiggly-error');
  await editor.command('Problems: Focus on Problems View');
  await editor.see('.markers-panel', 'OLD-REGOIN');
  await editor.picture('problems');

  await editor.command('View: Toggle Panel Visibility');

  await editor.open('CUSTUPD.cbl', 129, 27);
  await editor.command('Tarka: Show Record Layouts');
  await editor.see('.tab', 'Layout of CUSTUPD.cbl');
  await editor.see('.editor-instance', 'OLD-REGION');
  await editor.picture('layout');
  await editor.command('View: Close All Editors');

  await editor.open('CUSTUPD.cbl', 141, 20);
  await editor.command('Tarka: Show the Control Flow');
  await editor.see('.tab', 'Flow of 2000-PROCESS-CUSTOMER');
  await editor.seeGraph();
  await editor.picture('flow');
  await editor.command('View: Close All Editors');

  await editor.open('CUSTUPD.cbl', 129, 27);
  await editor.command('Show or Focus Hover');
  await editor.see('.monaco-hover', 'PIC');
  await editor.picture('hover');
  await editor.page.keyboard.press('Escape');

  await editor.command('Go to Definition');
  await editor.see('.tab.active', 'CUSTREC.cpy');
  await editor.picture('definition');
}

let server, browser;
try {
  prepare();
  const port = await freePort();
  server = await startServer(port);
  browser = await puppeteer.launch({
    executablePath: process.env.CHROMIUM ?? '/usr/bin/chromium',
    args: ['--no-sandbox', '--disable-gpu'],
    defaultViewport: { width: 1400, height: 900 },
  });
  const page = await browser.newPage();
  page.setDefaultTimeout(90000);
  await page.goto(`http://127.0.0.1:${port}/?folder=${path.join(work, 'project')}`);
  await page.waitForSelector('.explorer-viewlet');
  const editor = new Editor(page);
  try {
    await look(editor);
  } catch (error) {
    await editor.picture('failure');
    throw error;
  }
} finally {
  await browser?.close();
  server?.kill();
  rmSync(work, { recursive: true, force: true });
}
