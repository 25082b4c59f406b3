/** What a host's parent object offers. Every member may be left out. */
export interface Parent {
  LogError?(
    lNumber: number,
    sDescription: string,
    sSource: string,
    sExtra: string,
    sRoutine: string,
    lLineNumber: number,
  ): void;
  /**
   * nStyle % 16 is 1 where OK (1) and Cancel (2) can be answered. The answer may come later, as a
   * promise; undefined leaves the message to the element.
   */
  ShowMessage?(
    sMessage: string,
    nStyle: number,
    sTitle: string,
  ): number | Promise<number> | undefined;
  /** The url of a picture of the item; as the support object's where it is left out. */
  GetGraphicsPath?(fileName: string): string;
}

/** What a host's support object offers: files by their urls. */
export interface Support {
  /** Of a file of texts, such as KVStatic.xml. */
  GetLocalizePath(fileName: string): string;
  /** Of a picture or a case file of the item; '' for one that has no place. */
  GetGraphicsPath(fileName: string): string;
  /** A name with a slash at its end, under which the component keeps its own pictures. */
  GetSupportFileDir(name: string): string;
}

/** What a scoring engine of the page's own offers; scores are returned. */
export interface ScoringEngine {
  /** The document to score: an object whose members are called by name. */
  Document: any;
  CalculateScore(): number;
  MaxScore(): number;
  MinScore(): number;
}

/** What a case study of the page's own offers. Places and sizes are twips. */
export interface CaseStudy {
  DisplayInt_SetParentWnd(hWnd: number): number;
  InitCaseStudy(
    bytes: Uint8Array,
    byteCount: number,
    lOptions: number,
    supportObject: Support,
    heading: string,
  ): void;
  getCaseParent(): number;
  QuestionSize(
    lLeft: number,
    lTop: number,
    lWidth: number,
    lHeight: number,
  ): { lLeft: number; lTop: number; lWidth: number; lHeight: number };
  DisplayInt_ShowExternalDisplay(
    lLeft: number,
    lTop: number,
    lWidth: number,
    lHeight: number,
  ): boolean;
  DisplayInt_ResizeExternalDisplay(
    lLeft: number,
    lTop: number,
    lWidth: number,
    lHeight: number,
  ): boolean;
  DisplayInt_HideExternalDisplay(): boolean;
  DisplayInt_FreeExternalDisplay(): boolean;
  DisplayInt_GetExternalDisplayStatus(
    lDispState: number,
    bViewedAll: boolean,
    sStateMsg: string,
  ): { lDispState?: number; bViewedAll?: boolean; sStateMsg?: string };
}

export interface LogEntry {
  number: number;
  description: string;
  source: string;
  extra: string;
  routine: string;
  line: number;
}

export interface AnsweredMessage {
  text: string;
  style: number;
  title: string;
  /** 1 OK, 2 Cancel. */
  answer: number;
}

export interface Score {
  result: boolean;
  nCorrect: number;
  nIncorrect: number;
  nNotAttempted: number;
  nNotScored: number;
  fRawScore: number;
}

/** What a failing member throws. */
export interface AutomationError extends Error {
  number: number;
  source: string;
}

export interface ZavDragDropEventMap {
  'zav-responses-changed': CustomEvent<{ responses: string[] }>;
  'zav-state-changed': CustomEvent<{ state: string }>;
  'zav-viewed-all': CustomEvent<Record<string, never>>;
  'zav-error-logged': CustomEvent<LogEntry>;
  'zav-message-answered': CustomEvent<AnsweredMessage>;
}

/**
 * A drag-and-drop exam item: `<zav-drag-drop src="items/heart/">`.
 *
 * Attributes: `src`, `language`, `options` (words of "read-only", "show-answers", "calculator").
 * Places and sizes are twips, 15 to a pixel; byte arrays hold UTF-16LE text.
 */
export class ZavDragDropElement extends HTMLElement {
  /**
   * Loads the module. When the page has nothing else to do after that, and until there is an item, the
   * module's code is run, so that the first item comes up as fast as any other. For a host that has
   * time before it shows one; nobody has to call it.
   */
  static prepare(): Promise<void>;

  parent: Parent | undefined;
  support: Support | undefined;
  /** The item of `src` is loaded and shown; rejected when it could not be had. */
  readonly ready: Promise<void>;
  /** What SetParentWnd takes; 0 before initialisation. */
  readonly hostWindow: number;
  /** The responses in the state, such as A3. */
  readonly responses: string[];
  /**
   * The candidate has seen the whole item. GetExternalDisplayStatus tells it too, and tells the
   * candidate to scroll where it is not so.
   */
  readonly viewedAll: boolean;
  /**
   * The state snapshot as text. Storing one shows what it says; '' is one without responses. What is no
   * state throws an Error that says so, and the item keeps the state that it has.
   */
  state: string;

  /** Counts from the next initialisation. */
  registerClass(progId: 'ZavScoring.ScoreEngine', create: () => ScoringEngine): void;
  registerClass(progId: 'ZavCaseStudy.clsCaseStudy', create: () => CaseStudy): void;
  /** Frees the item and everything that it took; the element can be used again. */
  dispose(): void;

  set ExternalSupport(support: Support | undefined);
  hwnd(): number;
  SetParentWnd(hParentWnd: number): number;
  InitExternalDisplay(arInit: Uint8Array, lInitBytes?: number, lOptions?: number): Promise<boolean>;
  ShowExternalDisplay(lLeft: number, lTop: number, lWidth: number, lHeight: number): boolean;
  ResizeExternalDisplay(lLeft: number, lTop: number, lWidth: number, lHeight: number): boolean;
  HideExternalDisplay(): boolean;
  FreeExternalDisplay(): boolean;
  /** lDispState: 2 no response yet, 3 fewer than the item asks for, 100 answered. */
  GetExternalDisplayStatus(): { lDispState: number; bViewedAll: boolean; sStateMsg: string };
  GetExternalStateBytes(): number;
  GetExternalStateArray(lBytes: number): { arState: Uint8Array };
  SetExternalStateArray(arState: Uint8Array, lBytes?: number): void;
  /** lRespType: 0 the key, 1 the responses. */
  GetResponseBytes(lRespType: number): { result: number; bIsASCII: boolean };
  GetResponse(lRespType: number, lBuffer: number): { result: boolean; arResponse: Uint8Array };
  GetScoreInfo(): { result: boolean; nItems: number; fMaxScore: number; fMinScore: number };
  ScoreExternalDisplay(): Score;
  RescoreExternalDisplay(arResponse: Uint8Array, lRespBytes?: number): Score;
  RescoreExternalDisplayQuick(arResponse: Uint8Array, lRespBytes?: number): Score;

  addEventListener<Type extends keyof ZavDragDropEventMap>(
    type: Type,
    listener: (this: ZavDragDropElement, event: ZavDragDropEventMap[Type]) => unknown,
    options?: boolean | AddEventListenerOptions,
  ): void;
  addEventListener(
    type: string,
    listener: EventListenerOrEventListenerObject,
    options?: boolean | AddEventListenerOptions,
  ): void;
}

declare global {
  interface HTMLElementTagNameMap {
    'zav-drag-drop': ZavDragDropElement;
  }
}
