/**
 * The pictures that the component itself brings, by their tags: width and height in pixels.
 * Sizes stand here so that an item need not wait for the files.
 * @type {Record<string, [number, number]>}
 */
export const artwork = {
  AreaTitle_Bar_tile: [8, 96],
  Bottom_Tile: [8, 8],
  Bottom_bar_tile: [8, 41],
  CalloutBackground: [8, 8],
  CollapsedNode: [13, 13],
  ExpandedNode: [13, 13],
  Left_corner: [10, 27],
  Left_vert_bar_tile: [8, 8],
  Lt_Lower_Corner: [10, 8],
  Rt_Lower_Corner: [10, 8],
  Rt_corner: [10, 27],
  Rt_vert_bar_tile: [8, 8],
  Top_Bar_tile: [8, 27],
  picGrab: [32, 32],
  picHand: [32, 32],
};

/**
 * What has transparent parts is a PNG.
 * @param {string} tag
 */
export const artworkFile = (tag) => `${tag}.${tag.startsWith('pic') ? 'png' : 'bmp'}`;
