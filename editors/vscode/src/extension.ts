// The extension starts `tarka lsp` and shows what its commands answer: text, or a graph.

import { accessSync, constants, statSync } from 'node:fs';
import * as path from 'node:path';
import * as vscode from 'vscode';
import { LanguageClient, Location, Position, RevealOutputChannelOn } from 'vscode-languageclient/node';
import { Answer, Views } from './views';

let client: LanguageClient | undefined;
let channel: vscode.OutputChannel;
let views: Views;

export async function activate(context: vscode.ExtensionContext): Promise<void> {
  channel = vscode.window.createOutputChannel('Tarka COBOL');
  views = new Views(context);
  context.subscriptions.push(
    channel,
    vscode.commands.registerCommand('tarka.restart', () => restart(context)),
    vscode.commands.registerCommand('tarka.showReferences', showReferences),
    vscode.commands.registerCommand('tarka.layoutHere', () => runHere('tarka.showLayout')),
    vscode.commands.registerCommand('tarka.flowHere', () => runHere('tarka.showFlow')),
    vscode.commands.registerCommand('tarka.expandedHere', () => runHere('tarka.showExpanded')),
    vscode.workspace.onDidChangeConfiguration((change) => {
      if (change.affectsConfiguration('tarka.path') || change.affectsConfiguration('tarka.arguments'))
        void restart(context);
    }),
  );
  await start(context);
}

export async function deactivate(): Promise<void> {
  await client?.stop();
}

async function restart(context: vscode.ExtensionContext): Promise<void> {
  await client?.stop();
  client = undefined;
  await start(context);
}

async function start(context: vscode.ExtensionContext): Promise<void> {
  const settings = vscode.workspace.getConfiguration('tarka');
  const program = findProgram(context, settings.get<string>('path', ''));
  if (!program) {
    await reportMissing(settings.get<string>('path', ''));
    return;
  }
  channel.appendLine(`Starting ${program}`);
  const command = { command: program, args: ['lsp', ...settings.get<string[]>('arguments', [])] };
  client = new LanguageClient('tarka', 'Tarka COBOL', { run: command, debug: command }, {
    documentSelector: [
      { scheme: 'file', language: 'cobol' },
      { scheme: 'untitled', language: 'cobol' },
    ],
    outputChannel: channel,
    revealOutputChannelOn: RevealOutputChannelOn.Never,
    synchronize: {
      fileEvents: vscode.workspace.createFileSystemWatcher('**/*'),
    },
    middleware: {
      executeCommand: async (name, args, next) => {
        const answer: unknown = await next(name, args);
        if (isAnswer(answer)) await views.show(answer);
        return answer;
      },
    },
  });
  await client.start();
}

function isAnswer(value: unknown): value is Answer {
  return typeof value === 'object' && value !== null && 'content' in value && 'kind' in value;
}

/** The program of the settings, else the one on the PATH, else the one that is packed with the extension. */
function findProgram(context: vscode.ExtensionContext, configured: string): string | undefined {
  const name = process.platform === 'win32' ? 'tarka.exe' : 'tarka';
  if (configured) {
    const folder = vscode.workspace.workspaceFolders?.[0]?.uri.fsPath ?? '';
    const resolved = path.resolve(folder, configured.replace('${workspaceFolder}', folder));
    return isProgram(resolved) ? resolved : undefined;
  }
  const folders = (process.env.PATH ?? '').split(path.delimiter).filter(path.isAbsolute);
  const bundled = context.asAbsolutePath(path.join('dist', 'bin'));
  return [...folders, bundled].map((folder) => path.join(folder, name)).find(isProgram);
}

function isProgram(file: string): boolean {
  try {
    accessSync(file, constants.X_OK);
    return statSync(file).isFile();
  } catch {
    return false;
  }
}

async function reportMissing(configured: string): Promise<void> {
  const message = configured
    ? `The program ${configured} (tarka.path) cannot be run.`
    : 'The program tarka is not on the PATH, and this extension comes without it. Install it, or set tarka.path.';
  if ((await vscode.window.showErrorMessage(message, 'Open Settings')) === 'Open Settings')
    await vscode.commands.executeCommand('workbench.action.openSettings', 'tarka.path');
}

/** Shows the places that a lens of the server counts. */
async function showReferences(uri: string, what: { position: Position; places: Location[] }): Promise<void> {
  const position = new vscode.Position(what.position.line, what.position.character);
  const places = what.places.map(({ uri: file, range }) => new vscode.Location(
    vscode.Uri.parse(file),
    new vscode.Range(range.start.line, range.start.character, range.end.line, range.end.character),
  ));
  await vscode.commands.executeCommand('editor.action.showReferences', vscode.Uri.parse(uri), position, places);
}

/** Runs a command of the server for the place of the cursor. */
async function runHere(command: string): Promise<void> {
  const editor = vscode.window.activeTextEditor;
  if (!editor || editor.document.languageId !== 'cobol') return;
  const { line, character } = editor.selection.active;
  await vscode.commands.executeCommand(command, editor.document.uri.toString(), { position: { line, character } });
}
