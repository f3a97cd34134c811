// What the commands of the server answer, in an editor or a panel beside the source.

import { instance } from '@viz-js/viz';
import * as vscode from 'vscode';

/** The answer of a command: text in a language, or a graph in the DOT language. */
export interface Answer {
  title: string;
  kind: 'text' | 'dot';
  language?: string;
  content: string;
}

const scheme = 'tarka';

export class Views implements vscode.TextDocumentContentProvider {
  private readonly texts = new Map<string, string>();
  private readonly changed = new vscode.EventEmitter<vscode.Uri>();
  private readonly panels = new Map<string, vscode.WebviewPanel>();
  readonly onDidChange = this.changed.event;

  constructor(context: vscode.ExtensionContext) {
    context.subscriptions.push(
      vscode.workspace.registerTextDocumentContentProvider(scheme, this),
      vscode.workspace.onDidCloseTextDocument((closed) => {
        if (closed.uri.scheme === scheme) this.texts.delete(closed.uri.path);
      }),
    );
  }

  provideTextDocumentContent(uri: vscode.Uri): string {
    return this.texts.get(uri.path) ?? '';
  }

  async show(answer: Answer): Promise<void> {
    await (answer.kind === 'dot' ? this.showGraph(answer) : this.showText(answer));
  }

  private async showText(answer: Answer): Promise<void> {
    const uri = vscode.Uri.from({ scheme, path: `/${answer.title}` });
    this.texts.set(uri.path, answer.content);
    this.changed.fire(uri);
    const document = await vscode.workspace.openTextDocument(uri);
    if (answer.language) await vscode.languages.setTextDocumentLanguage(document, answer.language);
    await vscode.window.showTextDocument(document, {
      viewColumn: vscode.ViewColumn.Beside,
      preserveFocus: true,
      preview: false,
    });
  }

  private async showGraph(answer: Answer): Promise<void> {
    const svg = (await instance()).renderString(answer.content, { format: 'svg' });
    let panel = this.panels.get(answer.title);
    if (!panel) {
      panel = vscode.window.createWebviewPanel(
        'tarka.graph',
        answer.title,
        { viewColumn: vscode.ViewColumn.Beside, preserveFocus: true },
        { enableScripts: true },
      );
      this.panels.set(answer.title, panel);
      panel.onDidDispose(() => this.panels.delete(answer.title));
    }
    panel.webview.html = graphPage(svg.slice(svg.indexOf('<svg')));
    panel.reveal(undefined, true);
  }
}

/** A page with the picture, which the wheel zooms and the mouse moves. */
function graphPage(svg: string): string {
  const nonce = Array.from({ length: 24 }, () => Math.floor(Math.random() * 36).toString(36)).join('');
  return `<!DOCTYPE html>
<html>
<head>
<meta charset="utf-8">
<meta http-equiv="Content-Security-Policy" content="default-src 'none'; style-src 'unsafe-inline'; script-src 'nonce-${nonce}'">
<style>
  html, body { margin: 0; height: 100%; overflow: hidden; background: white; }
  body { cursor: grab; }
  svg { transform-origin: 0 0; }
</style>
</head>
<body>${svg}
<script nonce="${nonce}">
  const svg = document.querySelector('svg');
  let scale = Math.min(1, innerWidth / svg.getBoundingClientRect().width), x = 0, y = 0;
  const place = () => { svg.style.transform = 'translate(' + x + 'px,' + y + 'px) scale(' + scale + ')'; };
  addEventListener('wheel', (event) => {
    event.preventDefault();
    const by = Math.exp(-event.deltaY / 500);
    x = event.clientX - (event.clientX - x) * by;
    y = event.clientY - (event.clientY - y) * by;
    scale *= by;
    place();
  }, { passive: false });
  addEventListener('pointermove', (event) => {
    if (!event.buttons) return;
    x += event.movementX;
    y += event.movementY;
    place();
  });
  place();
</script>
</body>
</html>`;
}
